// Writes the file "started" into the folder that WAITING_PROGRAM_FOLDER names (with its separator),
// waits for a file "end" there, then writes "ended".

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

int main(int argument_count, char**) {
  using std::chrono::milliseconds;
  const char* variable = std::getenv("WAITING_PROGRAM_FOLDER");
  if (variable == nullptr || argument_count != 1) return 2;
  const std::string folder = variable;
  std::ofstream(folder + "started").put('\n');
  for (int turns = 0; !std::ifstream(folder + "end"); ++turns) {
    if (turns == 6000) return 1;  // a failed test never asks for the end
    std::this_thread::sleep_for(milliseconds(10));
  }
  std::this_thread::sleep_for(milliseconds(100));
  std::ofstream(folder + "ended").put('\n');
  return 0;
}
