#include "tests/host/lies.h"

namespace scripted {
namespace {

Lie gLie = Lie::kNone;

}  // namespace

void Tell(Lie lie) {
  gLie = lie;
}

bool Tells(Lie lie) {
  return gLie == lie;
}

}  // namespace scripted
