#ifndef TESTS_DRIVERS_SCRIPTLINE_H_
#define TESTS_DRIVERS_SCRIPTLINE_H_

#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "tests/drivers/Script.h"

namespace imptable::scripted {

/// The words of one line of a script, taken from left to right. Words are parted by blanks; text in
/// double quotes is one word, with \" \\ \n \t in it; "=" is a word by itself; "#" at the start
/// of a word begins a comment. Each function throws ScriptFault when the line isn't as expected.
class ScriptLine {
 public:
  ScriptLine(std::string_view line, std::size_t number);

  bool IsAtEnd() const { return next_ == words_.size(); }
  /// Takes the next word when it is this one, outside quotes.
  bool TakeIf(std::string_view word);
  void Expect(std::string_view word);
  std::string TakeText(std::string_view what);
  /// `null` outside quotes is NULL.
  Cell TakeCell(std::string_view what);
  Cell TakeNumberCell(std::string_view what);
  bool IsNumberNext() const;
  Call TakeCall();
  void ExpectEnd() const;
  [[noreturn]] void Fail(const std::string& why) const;

  template <typename Number>
  Number TakeNumber(std::string_view what) {
    const std::string text = TakeText(what);
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end) {
      Fail(std::string(what) + " expected, not \"" + text + "\"");
    }
    return number;
  }

 private:
  struct Word {
    std::string text;
    bool quoted = false;
  };

  std::size_t AddQuoted(std::string_view line, std::size_t at);

  std::vector<Word> words_;
  std::size_t next_ = 0;
  std::size_t number_;
};

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_SCRIPTLINE_H_
