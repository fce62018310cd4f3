#include "tests/robustness/differential/GeneratedTask.h"

#include <array>

namespace imptable {
namespace {

std::string Digits(Draws& draws, std::size_t count) {
  std::string digits;
  for (; count > 0; --count) digits += static_cast<char>('0' + draws.Below(10));
  return digits;
}

/// Braces, unlike "+", say in which order the draws are made.
std::string Joined(std::initializer_list<std::string> parts) {
  std::string text;
  for (const std::string& part : parts) text += part;
  return text;
}

std::string Of(Draws& draws, std::initializer_list<const char*> choices) {
  return *(choices.begin() + draws.Below(choices.size()));
}

std::string ColumnEntry(Draws& draws, bool delimited) {
  const std::string type =
      draws.OneIn(20) ? Of(draws, {"", "0", "9", "77"}) : std::to_string(1 + draws.Below(8));
  std::string second;
  if (type == "7") {
    second =
        draws.OneIn(20) ? Of(draws, {"", "0", "17", "07"}) : std::to_string(1 + draws.Below(16));
  } else if (type == "3" || type == "5" || type == "6") {
    second = draws.OneIn(2) ? "" : std::to_string(draws.Below(7));
  }
  std::string width = delimited ? "" : std::to_string(draws.Below(30));
  if (type == "7") {
    if (draws.OneIn(3)) width.clear();
    return Joined({"7,", second, ",", width, ",", Of(draws, {"", "/", "-", "."}), ",",
                   Of(draws, {"", "0", "1", "2"})});
  }
  if (!delimited) return type + "," + second + "," + width;
  return second.empty() ? type : type + "," + second;
}

std::string Assignment(Draws& draws, std::size_t fields) {
  const std::string description = Of(draws, {"", "CODE,", "CODE,INTEGER,"});
  if (!draws.OneIn(3)) {
    return Joined({description, "(Col)", Of(draws, {"", "", " "}),
                   std::to_string(1 + draws.Below(fields + 1))});
  }
  return description + Of(draws, {"Null", "null", "@A", "@B", "@NONE", "@", "constant", "  ", "",
                                  "12,5", "12.50", "2006-11-15", "(col)1", " x "});
}

std::string DatePart(Draws& draws, std::size_t digits) {
  if (draws.OneIn(50)) return Of(draws, {" 5", "5 ", "  ", "xx", "1", "", "-1", "+1", "1 1"});
  return Digits(draws, digits);
}

std::string Separated(Draws& draws) {
  return draws.OneIn(8) ? Of(draws, {"é", " ", "€", "\xE9", "", "//"}) : Of(draws, {"/", "-", "."});
}

std::string DateText(Draws& draws, const std::string& style, const std::string& time) {
  static const std::map<std::string, const char*> layouts{
      {"1", "222 "},  {"2", "222"},    {"3", "222 "},   {"4", "222"},
      {"5", "222"},   {"6", "222"},    {"7", "2?2?4"},  {"8", "2?2?2"},
      {"9", "2?2?4"}, {"10", "2?2?2"}, {"11", "2?2?2"}, {"12", "2?2?2"},
      {"13", "422"},  {"14", "422"},   {"15", "4?2?2"}, {"16", "4?2?2"}};
  const auto found = layouts.find(style);
  std::string text;
  for (const char part : std::string(found == layouts.end() ? "2?2?4" : found->second)) {
    if (part == '2') text += DatePart(draws, 2);
    if (part == '4') text += DatePart(draws, 4);
    if (part == ' ') text += Digits(draws, 2);
    if (part == '?') text += Separated(draws);
  }
  if (time == "0" || time == "1") {
    text += Joined({Of(draws, {" ", " ", " ", "T", "", "é"}), DatePart(draws, 2), Separated(draws),
                    DatePart(draws, 2)});
    if (time == "1") text += Joined({Separated(draws), DatePart(draws, 2)});
  }
  return text + (draws.OneIn(40) ? Of(draws, {" ", "   ", "x"}) : "");
}

std::string NumberText(Draws& draws, const std::string& separator) {
  std::string text = Digits(draws, 1 + draws.Below(7));
  if (draws.OneIn(2)) text += Joined({separator, Digits(draws, draws.Below(4))});
  if (draws.OneIn(20)) text += Joined({Of(draws, {".", ",", "::", " ", "x"}), Digits(draws, 2)});
  if (draws.OneIn(10)) {
    text += Joined(
        {Of(draws, {"e", "E"}), Of(draws, {"", "-", "+"}), Digits(draws, 1 + draws.Below(3))});
  }
  if (draws.OneIn(8)) text.insert(0, Of(draws, {"-", "+", "- ", "-", "(", "--"}));
  if (draws.OneIn(12)) text += Of(draws, {"-", "+", " -", ")"});
  if (draws.OneIn(8)) text.insert(0, Of(draws, {" ", "   ", "\t"}));
  if (draws.OneIn(8)) text += Of(draws, {" ", "   ", "\t", "\v"});
  if (draws.OneIn(200)) text.insert(0, Digits(draws, 290 + draws.Below(20)));
  return text;
}

std::string PlainText(Draws& draws) {
  std::string text;
  for (std::size_t parts = draws.Below(6); parts > 0; --parts) {
    text +=
        Of(draws, {"a",        "Z", " ", "  ", "\"", "'", "é",  "€",    "𝄞", "\xE9",        "\xC3",
                   "\xE2\x82", ",", "0", "7",  ".",  "-", "\t", "Null", "§", "\xF0\x9F\x92"});
  }
  if (draws.OneIn(60)) {
    text +=
        Joined({std::string(485 + draws.Below(20), 'x'),
                Of(draws, {"éé", "€€€", "𝄞𝄞", "\x80\x80", ""}), std::string(draws.Below(20), 'y')});
  }
  return text;
}

std::string FixedFormText(Draws& draws) {
  std::string text = Joined({Digits(draws, 4), "-", DatePart(draws, 2), "-", DatePart(draws, 2)});
  if (draws.OneIn(2)) text += Joined({" ", DatePart(draws, 2), ":", DatePart(draws, 2)});
  if (draws.OneIn(2)) text += ":" + DatePart(draws, 2);
  if (draws.OneIn(3)) text += "." + Digits(draws, draws.Below(11));
  return text;
}

/// A field that mostly fits the file column and the table column at this place.
std::string Field(const rules::Task& task, std::size_t place, Draws& draws) {
  const std::string& entry = task.layout[place];
  const int sql_type = place < task.columns.size() ? task.columns[place].sql_type : 12;
  if (draws.OneIn(12)) return Of(draws, {"", " ", "    "});
  if (draws.OneIn(40)) return PlainText(draws);
  const char type = entry.empty() ? '1' : entry[0];
  if (type == '7') {
    const std::size_t second = entry.find(',') + 1;
    return DateText(draws, entry.substr(second, entry.find(',', second) - second),
                    entry.substr(entry.rfind(',') + 1));
  }
  const bool number_rule = type == '3' || type == '5' || type == '6';
  if (number_rule || sql_type == 6) {
    const bool any = draws.OneIn(30) || (number_rule && task.explicit_separator);
    return NumberText(draws, any ? Of(draws, {".", ",", "::"}) : task.user_separator);
  }
  if (sql_type == 9 || sql_type == 11) return FixedFormText(draws);
  return PlainText(draws);
}

/// A type for a table column that the file column feeds.
std::int16_t FedType(const std::string& entry, Draws& draws) {
  constexpr std::array<std::int16_t, 9> kAnyTypes{12, 1, 6, 9, 11, 5, 4, 3, 8};
  constexpr std::array<std::int16_t, 4> kOfDates{9, 11, 11, 12};
  constexpr std::array<std::int16_t, 6> kOfNumbers{6, 6, 5, 3, 8, 12};
  if (draws.OneIn(15)) return draws.Of(kAnyTypes);
  if (entry.starts_with('7')) return draws.Of(kOfDates);
  if (!entry.empty() && std::string("356").find(entry[0]) != std::string::npos) {
    return draws.Of(kOfNumbers);
  }
  return draws.OneIn(4) ? draws.Of(kAnyTypes) : std::int16_t{12};
}

/// A field at the width that the file gives it.
std::string Fitted(const std::string& field, std::size_t width, const rules::Task& task) {
  const rules::Characters characters = rules::CharactersOf(field, task.utf8);
  std::string fitted = rules::TextOf(characters, 0, width);
  if (characters.size() < width) fitted.append(width - characters.size(), ' ');
  return fitted;
}

std::size_t WidthItem(const std::string& entry) {
  std::size_t from = entry.find(',');
  if (from != std::string::npos) from = entry.find(',', from + 1);
  if (from == std::string::npos) return 0;
  const std::string item = entry.substr(from + 1, entry.find(',', from + 1) - from - 1);
  return item.empty() ? 10 : std::stoul(item);
}

}  // namespace

rules::Task GeneratedTask(Draws& draws) {
  rules::Task task;
  task.utf8 = !draws.OneIn(3);
  task.year = draws.OneIn(10) ? 1999 : 2006;
  task.user_separator = Of(draws, {".", ".", ",", ",", "::", ""});
  task.delimited = !draws.OneIn(3);
  task.delimiter = Of(draws, {";", ";", ";", ",", "\t", "|", " ", "||", "§", "aa"});
  if (!task.utf8 && task.delimiter == "§") task.delimiter = "\xA7";
  task.explicit_separator = draws.OneIn(2);
  task.blanks_are_null = draws.OneIn(2);
  task.assigned = draws.OneIn(3);
  task.variables = {{"A", PlainText(draws)}, {"B", NumberText(draws, task.user_separator)}};
  const std::size_t fields = 1 + draws.Below(6);
  for (std::size_t i = 0; i < fields; ++i) {
    task.layout.push_back(ColumnEntry(draws, task.delimited));
  }
  // As a rule the table has at least as many columns as the file.
  const std::size_t columns = draws.OneIn(20) ? 1 + draws.Below(6) : fields + draws.Below(2);
  for (std::size_t i = 0; i < columns; ++i) {
    const std::string entry = i < fields ? task.layout[i] : "";
    task.columns.push_back({FedType(entry, draws), columns > 1 && draws.OneIn(12)});
  }
  if (task.assigned && !draws.OneIn(8)) {
    for (std::size_t i = draws.OneIn(4) ? draws.Below(columns + 2) : columns; i > 0; --i) {
      task.assignment.push_back(Assignment(draws, fields));
    }
  }
  return task;
}

std::string GeneratedLine(const rules::Task& task, Draws& draws) {
  std::string line;
  for (std::size_t i = 0; i < task.layout.size(); ++i) {
    const std::string field = Field(task, i, draws);
    if (task.delimited) {
      line += (i > 0 ? task.delimiter : "") + field;
    } else {
      line += Fitted(field, WidthItem(task.layout[i]), task);
    }
  }
  if (draws.OneIn(20)) line = line.substr(0, draws.Below(line.size() + 1));
  if (draws.OneIn(30)) line += task.delimiter;
  return line;
}

}  // namespace imptable
