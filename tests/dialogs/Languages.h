#ifndef TESTS_DIALOGS_LANGUAGES_H_
#define TESTS_DIALOGS_LANGUAGES_H_

#include <gtest/gtest.h>

#include <string>

#include "host/HostTexts.h"

namespace imptable {

inline const auto kEachLanguage = testing::Values(Language::kFrench, Language::kEnglish);

inline std::string LanguageName(const testing::TestParamInfo<Language>& language) {
  return language.param == Language::kFrench ? "French" : "English";
}

/// The text of the language.
inline std::string In(Language language, const char* french, const char* english) {
  return language == Language::kFrench ? french : english;
}

}  // namespace imptable

#endif  // TESTS_DIALOGS_LANGUAGES_H_
