#include "tests/drivers/ScriptLine.h"

namespace imptable::scripted {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool IsNumber(std::string_view text) {
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end;
}

}  // namespace

ScriptLine::ScriptLine(std::string_view line, std::size_t number) : number_(number) {
  std::size_t at = 0;
  while (at < line.size()) {
    if (IsBlank(line[at])) {
      ++at;
    } else if (line[at] == '#') {
      return;
    } else if (line[at] == '"') {
      at = AddQuoted(line, at + 1);
    } else if (line[at] == '=') {
      words_.push_back({"="});
      ++at;
    } else {
      const std::size_t start = at;
      while (at < line.size() && !IsBlank(line[at]) && line[at] != '=') ++at;
      words_.push_back({std::string(line.substr(start, at - start))});
    }
  }
}

std::size_t ScriptLine::AddQuoted(std::string_view line, std::size_t at) {
  Word word{"", true};
  for (; at < line.size(); ++at) {
    if (line[at] == '"') {
      words_.push_back(std::move(word));
      return at + 1;
    }
    if (line[at] != '\\') {
      word.text += line[at];
      continue;
    }
    constexpr std::string_view kLetters = "\"\\nt";
    constexpr std::string_view kMeanings = "\"\\\n\t";
    const auto which = at + 1 < line.size() ? kLetters.find(line[at + 1]) : std::string_view::npos;
    if (which == std::string_view::npos) Fail("only \\\" \\\\ \\n \\t are known in quotes");
    word.text += kMeanings[which];
    ++at;
  }
  Fail("a quote isn't closed");
}

bool ScriptLine::TakeIf(std::string_view word) {
  if (IsAtEnd() || words_[next_].quoted || words_[next_].text != word) return false;
  ++next_;
  return true;
}

void ScriptLine::Expect(std::string_view word) {
  if (!TakeIf(word)) Fail("\"" + std::string(word) + "\" expected");
}

std::string ScriptLine::TakeText(std::string_view what) {
  if (IsAtEnd()) Fail(std::string(what) + " expected");
  return words_[next_++].text;
}

Cell ScriptLine::TakeCell(std::string_view what) {
  if (TakeIf("null")) return std::nullopt;
  return TakeText(what);
}

Cell ScriptLine::TakeNumberCell(std::string_view what) {
  if (TakeIf("null")) return std::nullopt;
  return std::to_string(TakeNumber<std::int64_t>(what));
}

bool ScriptLine::IsNumberNext() const {
  return !IsAtEnd() && !words_[next_].quoted && IsNumber(words_[next_].text);
}

Call ScriptLine::TakeCall() {
  const std::string name = TakeText("the name of a call");
  const auto call = CallNamed(name);
  if (!call) Fail("\"" + name + "\" is no call that can be scripted");
  return *call;
}

void ScriptLine::ExpectEnd() const {
  if (!IsAtEnd()) Fail("\"" + words_[next_].text + "\" isn't expected here");
}

void ScriptLine::Fail(const std::string& why) const {
  throw ScriptFault("script line " + std::to_string(number_) + ": " + why);
}

}  // namespace imptable::scripted
