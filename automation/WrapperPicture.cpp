#include "automation/WrapperPicture.h"

#include <string>

#include "automation/AutomationEntry.h"
#include "core/RuntimeFault.h"

namespace imptable {

ComPointer<IPictureDisp> LoadPicture(HMODULE module, std::string_view resource) {
  const std::string name(resource);
  PICTDESC description{};
  description.cbSizeofstruct = sizeof(description);
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = static_cast<HBITMAP>(
      LoadImageA(module, name.c_str(), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  if (description.bmp.hbitmap == nullptr) {
    throw RuntimeFault(FaultNumber::kResourceNotFound, name);
  }
  ComPointer<IPictureDisp> picture;
  const HRESULT result =
      OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.ReceiveVoid());
  if (FAILED(result)) DeleteObject(description.bmp.hbitmap);
  Require(result);
  return picture;
}

}  // namespace imptable
