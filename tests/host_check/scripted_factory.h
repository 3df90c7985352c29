#ifndef TESTS_HOST_CHECK_SCRIPTED_FACTORY_H
#define TESTS_HOST_CHECK_SCRIPTED_FACTORY_H

#include <memory>

#include "host_check/host_check.h"
#include "tests/host/scripted_host.h"

/// The scripted host, as its engineer hands it over to be tried.
class ScriptedFactory final : public host_check::HostFactory {
 public:
  void Begin(const host_check::Setup& setup) override;
  host_check::Result End() override;

 private:
  std::unique_ptr<scripted::ScriptedHost> fHost;
};

#endif  // TESTS_HOST_CHECK_SCRIPTED_FACTORY_H
