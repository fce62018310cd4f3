#ifndef PLATFORM_PLATFORM_H_
#define PLATFORM_PLATFORM_H_

#include "platform/files/FileSystem.h"
#include "platform/files/ProfileFile.h"
#include "platform/registry/Registry.h"
#include "platform/system/Clock.h"
#include "platform/system/MessageLoop.h"
#include "platform/system/MousePointer.h"
#include "platform/system/WarningBox.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// The ports of one loaded component; all borrowed, all outlive it.
struct Platform {
  Registry& registry;
  MessageLoop& message_loop;
  Clock& clock;
  TextEncoding& encoding;
  FileSystem& files;
  WarningBox& warning_box;
  MousePointer& mouse_pointer;
  ProfileFile& profile_file;
};

}  // namespace imptable

#endif  // PLATFORM_PLATFORM_H_
