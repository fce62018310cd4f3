#include <cstdlib>

#include "platform/testing/ScopedVariable.h"

namespace imptable {

ScopedVariable::ScopedVariable(const char* name, const std::string& value) : name_(name) {
  if (const char* before = std::getenv(name)) before_ = before;
  _putenv_s(name, value.c_str());
}

ScopedVariable::~ScopedVariable() {
  _putenv_s(name_.c_str(), before_ ? before_->c_str() : "");  // "" removes the variable
}

}  // namespace imptable
