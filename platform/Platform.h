#ifndef PLATFORM_PLATFORM_H_
#define PLATFORM_PLATFORM_H_

#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/MessageLoop.h"
#include "platform/MousePointer.h"
#include "platform/ProfileFile.h"
#include "platform/Registry.h"
#include "platform/TextEncoding.h"
#include "platform/WarningBox.h"

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
