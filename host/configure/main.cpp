#include <iostream>
#include <string>
#include <vector>

#include "host/configure/ConfigureTask.h"

int main(int argc, char** argv) {
  return imptable::RunConfiguration(std::vector<std::string>(argv + 1, argv + argc),
                                    {.in = std::cin, .out = std::cout, .err = std::cerr});
}
