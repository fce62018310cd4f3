#include "odbc/PasswordMask.h"

#include <algorithm>
#include <cstddef>

namespace imptable {
namespace {

/// A shorter password is in many an innocent word.
constexpr std::size_t kFewestBytesWithinAWord = 4;

bool IsWordByte(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || static_cast<unsigned char>(byte) >= 0x80;
}

bool IsWordOfItsOwn(std::string_view text, std::size_t at, std::size_t length) {
  const bool joined_before = at > 0 && IsWordByte(text[at - 1]);
  const bool joined_after = at + length < text.size() && IsWordByte(text[at + length]);
  return !joined_before && !joined_after;
}

/// "{a}}b}" without its braces: "a}b".
std::string WithoutBraces(std::string_view password) {
  std::string inner;
  for (std::size_t at = 1; at + 1 < password.size(); ++at) {
    inner += password[at];
    if (password.substr(at, 2) == "}}") ++at;
  }
  return inner;
}

using Marks = std::vector<bool>;

void Mark(Marks& hidden, std::size_t at, std::size_t length) {
  std::fill_n(hidden.begin() + static_cast<std::ptrdiff_t>(at), length, true);
}

void MarkEach(std::string_view text, std::string_view form, Marks& hidden) {
  for (std::size_t at = text.find(form); at != std::string_view::npos;
       at = text.find(form, at + 1)) {
    if (form.size() >= kFewestBytesWithinAWord || IsWordOfItsOwn(text, at, form.size())) {
      Mark(hidden, at, form.size());
    }
  }
}

void MarkBeginningAtTheEnd(std::string_view text, std::string_view form, Marks& hidden) {
  for (std::size_t length = std::min(form.size() - 1, text.size()); length > 0; --length) {
    if (!text.ends_with(form.substr(0, length))) continue;
    Mark(hidden, text.size() - length, length);
    return;
  }
}

}  // namespace

PasswordMask::PasswordMask(const std::string& password) {
  Add(password);
  if (password.starts_with('{') && password.ends_with('}') && password.size() > 2) {
    Add(WithoutBraces(password));
  } else {
    Add(std::string_view(password).substr(0, password.find(';')));
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
