#include "host/registry/RegistryFailureText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr std::array kFaults{RegistryFileFault::kNotARegistry, RegistryFileFault::kNewerFormat,
                             RegistryFileFault::kDamaged,      RegistryFileFault::kNoRights,
                             RegistryFileFault::kDiskFull,     RegistryFileFault::kLocked,
                             RegistryFileFault::kUnusable};

class RegistryFailure : public testing::Test {
 protected:
  Utf8TextEncoding encoding;
  HostTexts french{Language::kFrench, encoding};
  HostTexts english{Language::kEnglish, encoding};
};

TEST_F(RegistryFailure, IsToldInEnglishInTheWordsOfTheErrorItself) {
  for (const RegistryFileFault fault : kFaults) {
    for (const char* detail : {"", "waited 50 ms"}) {
      const RegistryFileError error("/r.db", fault, detail);
      EXPECT_EQ(RegistryFailureText(error, english), error.what());
    }
  }
}

TEST_F(RegistryFailure, IsToldInFrenchWithTheFileTheReasonAndASentenceOfItsOwn) {
  std::set<std::string> sentences;
  for (const RegistryFileFault fault : kFaults) {
    const std::string text = RegistryFailureText({"/r.db", fault, "reason"}, french);
    EXPECT_THAT(text, StartsWith("le fichier du registre \"/r.db\" "));
    EXPECT_THAT(text, HasSubstr(" (reason) : "));
    sentences.insert(text);
  }
  EXPECT_EQ(sentences.size(), kFaults.size());
  EXPECT_EQ(RegistryFailureText({"/r.db", RegistryFileFault::kLocked, ""}, french),
            "le fichier du registre \"/r.db\" est verrouillé par un autre processus : arrêter ce "
            "processus ou recommencer plus tard");
}

}  // namespace
}  // namespace imptable
