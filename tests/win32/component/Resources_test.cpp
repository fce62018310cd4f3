// The pictures and the version within the DLL.

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/win32/component/Client.h"

namespace imptable {
namespace {

class Resources : public testing::Test {
 protected:
  const ComponentDll dll_;
};

TEST_F(Resources, HoldTheIconsOfTheDialogsInTheUsualSizes) {
  for (const wchar_t* const name : {L"WRAPPER_ICON", L"ICO1"}) {
    for (const int size : {16, 32, 48}) {
      const auto icon = static_cast<HICON>(
          LoadImageW(dll_.handle(), name, IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
      ASSERT_NE(icon, nullptr);
      ICONINFO info{};
      ASSERT_NE(GetIconInfo(icon, &info), 0);
      BITMAP bitmap{};
      EXPECT_NE(GetObjectW(info.hbmColor, sizeof(bitmap), &bitmap), 0);
      EXPECT_EQ(bitmap.bmWidth, size);
      EXPECT_EQ(bitmap.bmHeight, size);
      DeleteObject(info.hbmColor);
      DeleteObject(info.hbmMask);
      DestroyIcon(icon);
    }
  }
}

TEST_F(Resources, HoldEachSizeOfTheIconAsItsOwnPicture) {
  const HRSRC group = FindResourceA(dll_.handle(), "WRAPPER_ICON", RT_GROUP_ICON);
  ASSERT_NE(group, nullptr);
  const auto* data = static_cast<const BYTE*>(LockResource(LoadResource(dll_.handle(), group)));
  ASSERT_NE(data, nullptr);
  // A count after two words, then 14 bytes a picture, its width first.
  std::vector<int> widths;
  for (int i = 0; i < data[4]; ++i) widths.push_back(data[6 + 14 * i]);
  EXPECT_THAT(widths, testing::ElementsAre(16, 24, 32, 48));
}

TEST_F(Resources, HoldTheWrappersPicture) {
  const auto picture = static_cast<HBITMAP>(
      LoadImageW(dll_.handle(), L"WRAPPER_PICTURE", IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  ASSERT_NE(picture, nullptr);
  DIBSECTION section{};
  ASSERT_NE(GetObjectW(picture, sizeof(section), &section), 0);
  EXPECT_EQ(section.dsBm.bmWidth, 32);
  EXPECT_EQ(section.dsBm.bmBitsPixel, 24);
  const auto* pixels = static_cast<const BYTE*>(section.dsBm.bmBits);
  const int size = section.dsBm.bmWidthBytes * section.dsBm.bmHeight;
  EXPECT_GT(std::count_if(pixels, pixels + size, [](BYTE each) { return each != 0xFF; }), size / 4)
      << "something is drawn on the white";
  DeleteObject(picture);
}

TEST_F(Resources, TellTheVersion) {
  const std::wstring path = ComponentDll::Path();
  std::vector<BYTE> block(GetFileVersionInfoSizeW(path.c_str(), nullptr));
  ASSERT_FALSE(block.empty());
  ASSERT_NE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()),
            0);
  void* found = nullptr;
  UINT size = 0;
  ASSERT_NE(VerQueryValueW(block.data(), L"\\", &found, &size), 0);
  const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
  EXPECT_EQ(fixed->dwFileVersionMS, 0x00020001U);
  const auto text = [&](const wchar_t* name) {
    const std::wstring place = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    return VerQueryValueW(block.data(), place.c_str(), &found, &size) == 0
               ? std::wstring(L"none")
               : std::wstring(static_cast<const wchar_t*>(found));
  };
  EXPECT_EQ(FromWide(text(L"FileVersion")), IMPTABLE_VERSION);
  EXPECT_EQ(text(L"OriginalFilename"), L"SQLTImpT.dll");
  EXPECT_EQ(text(L"OLESelfRegister"), L"");
}

}  // namespace
}  // namespace imptable
