#include "odbc/PasswordMask.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "odbc/ConnectionString.h"

namespace imptable {
namespace {

bool IsAsciiWordByte(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || byte == '_';
}

bool IsAsciiByte(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// How signs begin in UTF-8. A non-ASCII character is a letter or a sign such as a quotation mark.
/// Signs are U+0080 to U+00BF and U+2000 to U+206F; in code pages of one byte they are 80 to BF.
constexpr std::array<std::string_view, 3> kSignsBegin{"\xC2", "\xE2\x80", "\xE2\x81"};

bool EndsInAWord(std::string_view text) {
  if (text.empty()) return false;
  if (IsAsciiByte(text.back())) return IsAsciiWordByte(text.back());
  std::size_t start = text.size() - 1;
  while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0U) == 0x80U &&
         text.size() - start < 4) {
    --start;
  }
  const std::string_view last = text.substr(start);
  if (static_cast<unsigned char>(last.front()) < 0xC0U) return false;
  return std::none_of(kSignsBegin.begin(), kSignsBegin.end(),
                      [&](std::string_view sign) { return last.starts_with(sign); });
}

bool BeginsWithAWord(std::string_view text) {
  if (text.empty()) return false;
  if (IsAsciiByte(text.front())) return IsAsciiWordByte(text.front());
  if (static_cast<unsigned char>(text.front()) < 0xC0U) return false;
  return std::none_of(kSignsBegin.begin(), kSignsBegin.end(),
                      [&](std::string_view sign) { return text.starts_with(sign); });
}

bool IsWordOfItsOwn(std::string_view text, std::size_t at, std::size_t length) {
  return !EndsInAWord(text.substr(0, at)) && !BeginsWithAWord(text.substr(at + length));
}

using Marks = std::vector<bool>;

void Mark(Marks& hidden, std::size_t at, std::size_t length) {
  std::fill_n(hidden.begin() + static_cast<std::ptrdiff_t>(at), length, true);
}

void MarkEach(std::string_view text, std::string_view form, Marks& hidden) {
  for (std::size_t at = text.find(form); at != std::string_view::npos;
       at = text.find(form, at + 1)) {
    if (IsWordOfItsOwn(text, at, form.size())) Mark(hidden, at, form.size());
  }
}

void MarkBeginningAtTheEnd(std::string_view text, std::string_view form, Marks& hidden) {
  for (std::size_t length = std::min(form.size() - 1, text.size()); length > 0; --length) {
    if (!text.ends_with(form.substr(0, length)) ||
        EndsInAWord(text.substr(0, text.size() - length))) {
      continue;
    }
    Mark(hidden, text.size() - length, length);
    return;
  }
}

}  // namespace

PasswordMask::PasswordMask(const std::string& password) {
  Add(password);
  Add(ConnectionValue(password));
  for (const std::string& whole : {password, ConnectionValue(password)}) {
    std::string_view rest = whole;
    for (std::size_t at = rest.find(';'); at != std::string_view::npos; at = rest.find(';')) {
      Add(rest.substr(0, at));
      rest.remove_prefix(at + 1);
      Add(rest);
    }
  }
}

void PasswordMask::Add(std::string_view form) {
  if (form.find_first_not_of(' ') == std::string_view::npos) return;
  if (std::find(forms_.begin(), forms_.end(), form) == forms_.end()) forms_.emplace_back(form);
}

std::string PasswordMask::Masked(std::string_view text, bool cut) const {
  Marks hidden(text.size(), false);
  for (const std::string& form : forms_) {
    MarkEach(text, form, hidden);
    if (cut) MarkBeginningAtTheEnd(text, form, hidden);
  }
  std::string shown;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!hidden[at]) {
      shown += text[at];
    } else if (at == 0 || !hidden[at - 1]) {
      shown += kHiddenPassword;
    }
  }
  return shown;
}

}  // namespace imptable
