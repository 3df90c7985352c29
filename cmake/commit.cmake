# Writes the header FILE, which names the commit of the folder SOURCES. Run by each build; a FILE that is right is left as
# it is, so that nothing is compiled again.
#   cmake -DGIT=PROGRAM -DSOURCES=FOLDER -DFILE=FILE -P commit.cmake
# Without git, or where SOURCES is not the top of a working tree, there is no commit to name.
cmake_minimum_required(VERSION 3.25)
set(MRSET_COMMIT "")
if(GIT)
  execute_process(COMMAND "${GIT}" rev-parse --show-prefix --short=12 HEAD
    WORKING_DIRECTORY "${SOURCES}" OUTPUT_VARIABLE answer RESULT_VARIABLE status ERROR_QUIET)
  # The first line is the folder's place below the top: empty at the top itself.
  if(status EQUAL 0 AND answer MATCHES "^\n([0-9a-f]+)\n$")
    set(MRSET_COMMIT " (${CMAKE_MATCH_1})")
  endif()
endif()
file(CONFIGURE OUTPUT "${FILE}" CONTENT "#define MRSET_COMMIT \"@MRSET_COMMIT@\"\n" @ONLY)
