#include "core/RuntimeFault.h"

#include <optional>

#include "core/Texts.h"

namespace imptable {
namespace {

ComponentText DescriptionOf(FaultNumber number) {
  switch (number) {
    case FaultNumber::kInvalidArgument:
      return ComponentText::kInvalidArgumentFault;
    case FaultNumber::kOverflow:
      return ComponentText::kOverflowFault;
    case FaultNumber::kOutOfMemory:
      return ComponentText::kOutOfMemoryFault;
    case FaultNumber::kIndexOutOfRange:
      return ComponentText::kIndexOutOfRangeFault;
    case FaultNumber::kTypeMismatch:
      return ComponentText::kTypeMismatchFault;
    case FaultNumber::kBadFileName:
      return ComponentText::kBadFileNameFault;
    case FaultNumber::kFileNotFound:
      return ComponentText::kFileNotFoundFault;
    case FaultNumber::kDeviceError:
      return ComponentText::kDeviceErrorFault;
    case FaultNumber::kDiskFull:
      return ComponentText::kDiskFullFault;
    case FaultNumber::kInputPastEnd:
      return ComponentText::kInputPastEndFault;
    case FaultNumber::kTooManyFiles:
      return ComponentText::kTooManyFilesFault;
    case FaultNumber::kPermissionDenied:
      return ComponentText::kPermissionDeniedFault;
    case FaultNumber::kPathAccessError:
      return ComponentText::kPathAccessErrorFault;
    case FaultNumber::kPathNotFound:
      return ComponentText::kPathNotFoundFault;
    case FaultNumber::kInvalidFileFormat:
      return ComponentText::kInvalidFileFormatFault;
    case FaultNumber::kResourceNotFound:
      return ComponentText::kResourceNotFoundFault;
    case FaultNumber::kNoHostObject:
      return ComponentText::kNoHostObjectFault;
  }
  return ComponentText::kDeviceErrorFault;
}

std::optional<ComponentText> WordsOf(FaultRemedy remedy) {
  switch (remedy) {
    case FaultRemedy::kNone:
      return std::nullopt;
    case FaultRemedy::kRemoveLink:
      return ComponentText::kRemoveLink;
    case FaultRemedy::kMoveForeignChain:
      return ComponentText::kMoveForeignChain;
    case FaultRemedy::kResumeOtherTask:
      return ComponentText::kResumeOtherTask;
    case FaultRemedy::kPutOtherSourceBack:
      return ComponentText::kPutOtherSourceBack;
    case FaultRemedy::kPutRejectedLinesRight:
      return ComponentText::kPutRejectedLinesRight;
    case FaultRemedy::kGiveColumns:
      return ComponentText::kGiveColumns;
  }
  return std::nullopt;
}

bool IsLink(const std::error_code& error) {
  return error == std::errc::too_many_symbolic_link_levels;
}

FaultNumber NumberOf(const std::error_code& error) {
  if (error == std::errc::no_such_file_or_directory) return FaultNumber::kFileNotFound;
  if (error == std::errc::not_a_directory) return FaultNumber::kPathNotFound;
  if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
      error == std::errc::read_only_file_system) {
    return FaultNumber::kPermissionDenied;
  }
  if (error == std::errc::is_a_directory || error == std::errc::text_file_busy || IsLink(error)) {
    return FaultNumber::kPathAccessError;
  }
  if (error == std::errc::no_space_on_device || error == std::errc::file_too_large) {
    return FaultNumber::kDiskFull;
  }
  if (error == std::errc::too_many_files_open ||
      error == std::errc::too_many_files_open_in_system) {
    return FaultNumber::kTooManyFiles;
  }
  if (error == std::errc::filename_too_long || error == std::errc::invalid_argument) {
    return FaultNumber::kBadFileName;
  }
  return FaultNumber::kDeviceError;
}

}  // namespace

RuntimeFault FileFault(const std::error_code& error, const std::string& path) {
  return RuntimeFault(NumberOf(error), path,
                      IsLink(error) ? FaultRemedy::kRemoveLink : FaultRemedy::kNone);
}

std::string DescribeFault(const RuntimeFault& fault, std::int32_t language_offset,
                          const TextEncoding& encoding) {
  std::string text = InWords(DescriptionOf(fault.number()), language_offset, encoding);
  if (!fault.detail().empty()) text += " : " + fault.detail();
  if (const auto remedy = WordsOf(fault.remedy())) {
    text += " : " + InWords(*remedy, language_offset, encoding);
  }
  return text;
}

}  // namespace imptable
