#ifndef AUTOMATION_WRAPPER_PICTURE_H_
#define AUTOMATION_WRAPPER_PICTURE_H_

#include <string_view>

#include "automation/ComPointer.h"

namespace imptable {

/// A bitmap resource as a picture object, which owns its bitmap.
/// @throws RuntimeFault  resource not found, when the module has no such bitmap.
/// @throws AutomationError
ComPointer<IPictureDisp> LoadPicture(HMODULE module, std::string_view resource);

}  // namespace imptable

#endif  // AUTOMATION_WRAPPER_PICTURE_H_
