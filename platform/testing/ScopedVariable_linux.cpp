#include <stdlib.h>

#include "platform/testing/ScopedVariable.h"

namespace imptable {

ScopedVariable::ScopedVariable(const char* name, const std::string& value) : name_(name) {
  if (const char* before = getenv(name)) before_ = before;
  setenv(name, value.c_str(), 1);
}

ScopedVariable::~ScopedVariable() {
  if (before_) {
    setenv(name_.c_str(), before_->c_str(), 1);
  } else {
    unsetenv(name_.c_str());
  }
}

}  // namespace imptable
