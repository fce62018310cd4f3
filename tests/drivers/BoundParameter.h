#ifndef TESTS_DRIVERS_BOUNDPARAMETER_H_
#define TESTS_DRIVERS_BOUNDPARAMETER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tests/drivers/DriverApi.h"

namespace imptable::scripted {

/// What SQLBindParameter was given. The buffers are the caller's and are read at each execution.
struct BoundParameter {
  bool is_bound = false;
  SQLSMALLINT c_type = 0;
  const void* value = nullptr;
  const SQLLEN* indicator = nullptr;
};

using BoundParameters = std::vector<BoundParameter>;

struct ParameterValue {
  enum class Kind : std::uint8_t { kUnbound, kNull, kText, kNumber, kMoment, kUnreadable };
  Kind kind = Kind::kUnbound;
  std::string text;
};

ParameterValue ReadParameter(const BoundParameter& parameter);
/// Numbers are compared as numbers, all else byte for byte.
bool Equals(const ParameterValue& value, const std::string& wanted);
/// `1='abc' 2=NULL 3=12.5 4={2006-11-15 08:30:00}`
std::string Describe(const BoundParameters& parameters);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_BOUNDPARAMETER_H_
