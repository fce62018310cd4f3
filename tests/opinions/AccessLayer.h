#ifndef TESTS_OPINIONS_ACCESS_LAYER_H_
#define TESTS_OPINIONS_ACCESS_LAYER_H_

#include <memory>

#include "core/ModuleCommun.h"
#include "platform/files/ProfileFileReader.h"
#include "platform/testing/ManualClock.h"
#include "platform/testing/ManualMessageLoop.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/RecordingWarningBox.h"
#include "plugin/StandaloneHostLibrary.h"

namespace imptable {

/// The component's registry access layer over one registry. It doesn't use the other ports.
class AccessLayer {
 public:
  explicit AccessLayer(Registry& port) : registry(port) {}

  Registry& registry;

 private:
  class NoPointer : public MousePointer {
   public:
    void ShowHourglass() override {}
    void Reset() override {}
  };

  ManualMessageLoop loop_;
  ManualClock clock_{LocalTime{2006, 11, 15, 8, 30, 0}};
  Latin1TextEncoding encoding_;
  std::unique_ptr<FileSystem> files_ = SystemFileSystem();
  RecordingWarningBox warnings_;
  NoPointer pointer_;
  ProfileFileReader profile_{*files_, encoding_};
  StandaloneHostLibrary library_;

 public:
  ModuleCommun module{
      Platform{registry, loop_, clock_, encoding_, *files_, warnings_, pointer_, profile_},
      library_};
};

}  // namespace imptable

#endif  // TESTS_OPINIONS_ACCESS_LAYER_H_
