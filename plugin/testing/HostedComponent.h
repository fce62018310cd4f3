#ifndef PLUGIN_TESTING_HOSTED_COMPONENT_H_
#define PLUGIN_TESTING_HOSTED_COMPONENT_H_

#include <gtest/gtest.h>

#include <memory>

#include "platform/files/ProfileFileReader.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/ManualClock.h"
#include "platform/testing/ManualMessageLoop.h"
#include "platform/testing/MemoryRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/RecordingWarningBox.h"
#include "platform/testing/TemporaryFolder.h"
#include "plugin/ModuleState.h"
#include "plugin/StandaloneHostLibrary.h"

namespace imptable {

/// A component with the stand-alone host library, on a platform that a test sets up. Texts are
/// UTF-8, and French unless a test says otherwise. The time is 04/03/2026 05:06:07.
class HostedComponent {
 public:
  HostedComponent() { library.Attach(state.commun); }

  ModuleCommun& module() { return state.commun; }

  MemoryRegistry registry;
  ManualMessageLoop loop;
  ManualClock clock{{.year = 2026, .month = 3, .day = 4, .hour = 5, .minute = 6, .second = 7}};
  Utf8TextEncoding encoding;
  std::unique_ptr<FileSystem> system_files = SystemFileSystem();
  FaultyFileSystem files{*system_files};
  RecordingWarningBox warnings;
  ProfileFileReader profile{files, encoding};
  StandaloneHostLibrary library;

 private:
  class NoPointer : public MousePointer {
   public:
    void ShowHourglass() override {}
    void Reset() override {}
  };
  NoPointer pointer_;

 public:
  ModuleState state{Platform{registry, loop, clock, encoding, files, warnings, pointer_, profile},
                    library};
  TemporaryFolder folder{testing::TempDir()};
};

}  // namespace imptable

#endif  // PLUGIN_TESTING_HOSTED_COMPONENT_H_
