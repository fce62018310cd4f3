#include "tests/win32/dialogs/ScreenPicture.h"

#include <algorithm>
#include <stdexcept>

namespace imptable {
namespace {

constexpr WORD kPointBits = 32;
constexpr std::uint32_t kColours = 0xFFFFFF;
constexpr WORD kMark = 0x4D42;  // "BM"

/// A negative height stands for lines from the top.
BITMAPINFOHEADER HeaderOf(int width, int height) {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = width;
  header.biHeight = -height;
  header.biPlanes = 1;
  header.biBitCount = kPointBits;
  return header;
}

}  // namespace

ScreenPicture::ScreenPicture(const RECT& place)
    : width_(place.right - place.left),
      height_(place.bottom - place.top),
      points_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {
  BITMAPINFO info{};
  info.bmiHeader = HeaderOf(width_, height_);
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ former = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width_, height_, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  std::copy_n(static_cast<const std::uint32_t*>(bits), points_.size(), points_.begin());
  SelectObject(memory, former);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

std::uint32_t ScreenPicture::Colour(int x, int y) const {
  return points_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(x)) &
         kColours;
}

void ScreenPicture::Save(const std::wstring& file) const {
  const BITMAPINFOHEADER info = HeaderOf(width_, height_);
  const auto size = static_cast<DWORD>(points_.size() * sizeof points_[0]);
  BITMAPFILEHEADER header{};
  header.bfType = kMark;
  header.bfOffBits = sizeof header + sizeof info;
  header.bfSize = header.bfOffBits + size;
  const HANDLE out = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  const bool is_written = WriteFile(out, &header, sizeof header, &written, nullptr) != 0 &&
                          WriteFile(out, &info, sizeof info, &written, nullptr) != 0 &&
                          WriteFile(out, points_.data(), size, &written, nullptr) != 0;
  CloseHandle(out);
  if (!is_written) throw std::runtime_error("a picture can't be written");
}

}  // namespace imptable
