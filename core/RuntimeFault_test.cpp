#include "core/RuntimeFault.h"

#include <gtest/gtest.h>

#include "core/MessageCatalogue.h"
#include "platform/text/Utf8Encoding.h"

namespace imptable {
namespace {

TEST(FaultOfAFile, NamesALinkThatIsNotFollowedAndSaysToRemoveIt) {
  const RuntimeFault fault =
      FileFault(std::make_error_code(std::errc::too_many_symbolic_link_levels), "/in/CLIENTS.ERR");
  EXPECT_EQ(fault.number(), FaultNumber::kPathAccessError);
  const Utf8Encoding encoding;
  EXPECT_EQ(DescribeFault(fault, kFrenchOffset, encoding),
            "Erreur d'accès au chemin ou au fichier : /in/CLIENTS.ERR : c'est un lien symbolique, "
            "qui n'est pas suivi : le supprimer");
  EXPECT_EQ(DescribeFault(fault, kEnglishOffset, encoding),
            "Path or file access error : /in/CLIENTS.ERR : it is a symbolic link, which isn't "
            "followed: remove it");
}

TEST(FaultOfAFile, NamesTheFileAloneForAnyOtherCause) {
  const RuntimeFault fault =
      FileFault(std::make_error_code(std::errc::permission_denied), "/in/CLIENTS.ERR");
  EXPECT_EQ(DescribeFault(fault, kEnglishOffset, Utf8Encoding()),
            "Permission denied : /in/CLIENTS.ERR");
}

}  // namespace
}  // namespace imptable
