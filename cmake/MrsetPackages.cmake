# Two Debian packages, by `cpack` in a build folder: mrset has the program, the module, manual and examples, mrset-dev what
# a host of one's own is compiled with. An install() rule belongs to mrset-dev if it says COMPONENT development.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)

install(FILES README.md CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" PATTERN mrset.1 EXCLUDE)
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}" RENAME copyright)
install(FILES LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}-dev" RENAME copyright COMPONENT development)

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL program development)
set(CPACK_PACKAGE_CONTACT "The mrset authors")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Which packages have the libraries that the program needs; its own library is in the same package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME mrset)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION math)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "multiple response sets of surveys
 Defines, displays and deletes named groups of variables that together record
 the answers to one select-all-that-apply question, in surveys read from CSV.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME mrset-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "mrset (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "multiple response sets of surveys (for hosts of the module)
 The declarations that an application implements to load the command module of
 mrset, and their CMake package.")

include(CPack)
