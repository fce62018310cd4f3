#ifndef CORE_RUNTIME_FAULT_H_
#define CORE_RUNTIME_FAULT_H_

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// Numbers of run-time faults, as the host and the report show them: never change.
enum class FaultNumber : std::int32_t {
  kInvalidArgument = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kIndexOutOfRange = 9,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceError = 57,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kTooManyFiles = 67,
  kPermissionDenied = 70,
  kPathAccessError = 75,
  kPathNotFound = 76,
  kInvalidFileFormat = 321,
  kResourceNotFound = 326,
  kNoHostObject = 430,
};

/// What to do about a fault, where its description doesn't say.
enum class FaultRemedy : std::uint8_t {
  kNone,
  kRemoveLink,
  kMoveForeignChain,       // the file isn't a chain of runs
  kResumeOtherTask,        // the task that has begun the chain
  kPutOtherSourceBack,     // the source that the chain was begun with
  kPutRejectedLinesRight,  // as many lines as the trace has rejections
  kGiveColumns,            // columns that a line can have a value for
};

/// A run-time fault: ends the routine it happens in. `detail` names the file, value or message
/// concerned, in the system's code page; empty when there is nothing to name.
class RuntimeFault : public std::exception {
 public:
  explicit RuntimeFault(FaultNumber number, std::string detail = {},
                        FaultRemedy remedy = FaultRemedy::kNone)
      : number_(number), detail_(std::move(detail)), remedy_(remedy) {}

  FaultNumber number() const noexcept { return number_; }
  const std::string& detail() const noexcept { return detail_; }
  FaultRemedy remedy() const noexcept { return remedy_; }
  const char* what() const noexcept override { return detail_.c_str(); }

 private:
  FaultNumber number_;
  std::string detail_;
  FaultRemedy remedy_;
};

/// The fault that a failed file operation amounts to; `path` becomes the detail.
RuntimeFault FileFault(const std::error_code& error, const std::string& path);

/// The fault in words: its standard description and, where there are any, the detail and the
/// remedy, each after " : ".
/// English when `language_offset` is 10000, else French.
std::string DescribeFault(const RuntimeFault& fault, std::int32_t language_offset,
                          const TextEncoding& encoding);

}  // namespace imptable

#endif  // CORE_RUNTIME_FAULT_H_
