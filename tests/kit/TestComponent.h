#ifndef TESTS_KIT_TEST_COMPONENT_H_
#define TESTS_KIT_TEST_COMPONENT_H_

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/ProfileFileReader.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/ManualClock.h"
#include "platform/testing/ManualMessageLoop.h"
#include "platform/testing/MemoryRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/RecordingWarningBox.h"
#include "plugin/ModuleState.h"
#include "tests/kit/TestHost.h"

namespace imptable {

/// A loaded component whose every port is a fake that a test sets up and looks at; files are real.
/// Texts are UTF-8, French unless a test says otherwise; it is 15/11/2006 08:30:00.
class TestComponent {
 public:
  explicit TestComponent(
      std::unique_ptr<TextEncoding> code_page = std::make_unique<Utf8TextEncoding>());

  MemoryRegistry registry;
  ManualMessageLoop message_loop;
  ManualClock clock;
  std::unique_ptr<TextEncoding> encoding;
  std::unique_ptr<FileSystem> real_files;
  FaultyFileSystem files;
  RecordingWarningBox warnings;
  CountingPointer pointer;
  ProfileFileReader profile_file;
  TestHost host;
  ModuleState state;

  ModuleCommun& module() { return state.commun; }
  OdbcSession& session() { return state.odbc; }
};

}  // namespace imptable

#endif  // TESTS_KIT_TEST_COMPONENT_H_
