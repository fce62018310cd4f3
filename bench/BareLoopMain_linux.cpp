// bare_loop REGISTRY SCENARIO TASK: prints the seconds of a bare loop over the task's lines.

#include <cstdio>
#include <exception>
#include <iostream>

#include "bench/BareLoop.h"
#include "host/HostContext.h"

int main(int count, char** arguments) {
  if (count != 4) {
    std::fputs("usage: bare_loop REGISTRY SCENARIO TASK\n", stderr);
    return 2;
  }
  try {
    imptable::HostContext context(arguments[1], std::nullopt, std::cerr);
    imptable::BareLoop loop(context.state, arguments[2], arguments[3]);
    std::printf("%.6f\n", loop.Seconds());
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bare_loop: %s\n", error.what());
    return 1;
  }
}
