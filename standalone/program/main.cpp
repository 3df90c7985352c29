#include "standalone/program/program.h"

int main(int argc, char** argv) {
  return standalone::RunProgram(argc, argv);
}
