#include "tests/host/pause.h"

namespace scripted {
namespace {

int gHostDepth = 0;

}  // namespace

bool IsHostAtWork() {
  return gHostDepth > 0;
}

HostWork::HostWork() {
  ++gHostDepth;
}

HostWork::~HostWork() {
  --gHostDepth;
}

CallersWork::CallersWork() {
  --gHostDepth;
}

CallersWork::~CallersWork() {
  ++gHostDepth;
}

}  // namespace scripted
