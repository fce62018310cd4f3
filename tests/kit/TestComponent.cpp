#include "tests/kit/TestComponent.h"

namespace imptable {

TestComponent::TestComponent(std::unique_ptr<TextEncoding> code_page)
    : clock(LocalTime{2006, 11, 15, 8, 30, 0}),
      encoding(std::move(code_page)),
      real_files(SystemFileSystem()),
      files(*real_files),
      profile_file(files, *encoding),
      state(Platform{registry, message_loop, clock, *encoding, files, warnings, pointer,
                     profile_file},
            host) {}

}  // namespace imptable
