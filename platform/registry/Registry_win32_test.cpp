#include "platform/registry/Registry_win32.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "platform/testing/RegistryPlace.h"
#include "platform/windows/Windows_win32.h"

// clang-format off: <sddl.h> needs <windows.h> before it
#include <sddl.h>
// clang-format on

namespace imptable {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

/// Looks at the registry with the system's own functions, beside the port.
class RegistryOfWindows : public testing::Test {
 protected:
  /// The bytes of a value as the system stores them: two bytes a character.
  std::string Stored(const KeyPath& key, const std::wstring& name, DWORD& type) const {
    HKEY open = nullptr;
    EXPECT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, key.path.c_str(), 0, KEY_READ, &open), 0);
    std::string bytes(1000, '\0');
    auto size = static_cast<DWORD>(bytes.size());
    EXPECT_EQ(RegQueryValueExW(open, name.c_str(), nullptr, &type,
                               reinterpret_cast<BYTE*>(bytes.data()), &size),
              0);
    RegCloseKey(open);
    bytes.resize(size);
    return bytes;
  }

  /// Leaves everybody only these rights on the key.
  /// @param rights  in the notation of security descriptors.
  void Restrict(const KeyPath& key, const std::string& rights) const {
    HKEY open = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, key.path.c_str(), 0, WRITE_DAC, &open), 0);
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_NE(ConvertStringSecurityDescriptorToSecurityDescriptorA(
                  ("D:P(A;;" + rights + ";;;WD)").c_str(), SDDL_REVISION_1, &descriptor, nullptr),
              0);
    EXPECT_EQ(RegSetKeySecurity(open, DACL_SECURITY_INFORMATION, descriptor), 0);
    LocalFree(descriptor);
    RegCloseKey(open);
  }

  std::unique_ptr<RegistryPlace> place_ = PlaceInTheSystem();
  Registry& registry_ = place_->registry();
  KeyPath key_ = place_->Key("Task");
};

TEST_F(RegistryOfWindows, HasTheTypesThatItIsGiven) {
  registry_.Write(key_, "Table", {RegistryType::kText, std::string("T\0", 2)});
  registry_.Write(key_, "Mode", {RegistryType::kNumber, std::string("\x02\x01\0\0", 4)});
  registry_.Write(key_, "Dir", {RegistryType::kExpandableText, std::string("%TEMP%\0", 7)});
  DWORD type = 0;
  EXPECT_EQ(Stored(key_, L"Table", type), std::string("T\0\0\0", 4));
  EXPECT_EQ(type, DWORD{REG_SZ});
  EXPECT_EQ(Stored(key_, L"Mode", type), std::string("\x02\x01\0\0", 4));
  EXPECT_EQ(type, DWORD{REG_DWORD});
  EXPECT_EQ(Stored(key_, L"Dir", type).size(), 14u) << "not expanded";
  EXPECT_EQ(type, DWORD{REG_EXPAND_SZ});
  EXPECT_EQ(registry_.Read(key_, "Dir"),
            (RegistryValue{RegistryType::kExpandableText, std::string("%TEMP%\0", 7)}));
}

TEST_F(RegistryOfWindows, HasAnEmptyTextAsALoneTerminator) {
  registry_.Write(key_, "Table", {RegistryType::kText, std::string(1, '\0')});
  DWORD type = 0;
  EXPECT_EQ(Stored(key_, L"Table", type), std::string(2, '\0'));
  EXPECT_EQ(registry_.Read(key_, "Table"),
            (RegistryValue{RegistryType::kText, std::string(1, '\0')}));
}

TEST_F(RegistryOfWindows, HasNamesAndTextsInTheCodePageOfTheUser) {
  const std::string name = place_->encoding().FromUtf8("CréeLe €");
  registry_.Write(key_, name, {RegistryType::kText, name + '\0'});
  DWORD type = 0;
  constexpr wchar_t kWide[] = L"Cr\u00e9eLe \u20ac";
  const std::string stored = Stored(key_, kWide, type);
  ASSERT_EQ(stored.size(), sizeof kWide);
  EXPECT_EQ(std::memcmp(stored.data(), kWide, sizeof kWide), 0);
  EXPECT_THAT(registry_.ValueNames(key_), testing::ElementsAre(name));
  EXPECT_EQ(registry_.Read(key_, name)->data, name + '\0');
}

TEST_F(RegistryOfWindows, GivesAValueOfAnySize) {
  for (const std::size_t size : {65'535u, 65'536u, 65'537u, 300'000u}) {
    const RegistryValue value{RegistryType::kBinary, std::string(size, 'x')};
    ASSERT_EQ(registry_.Write(key_, "v", value), kRegistryOk) << size;
    const auto read = registry_.Read(key_, "v");
    ASSERT_TRUE(read) << size;
    EXPECT_TRUE(*read == value) << read->data.size() << " bytes";
  }
}

TEST_F(RegistryOfWindows, ListsLongNames) {
  const std::string long_name = place_->encoding().FromUtf8("é") + std::string(200, 'k');
  ASSERT_EQ(registry_.Write(place_->Key(long_name), "v", {}), kRegistryOk);
  EXPECT_THAT(registry_.SubkeyNames(place_->Key("")), Contains(long_name));
  const std::string longest(16'000, 'v');
  ASSERT_EQ(registry_.Write(key_, longest, {RegistryType::kBinary, "x"}), kRegistryOk);
  EXPECT_THAT(registry_.ValueNames(key_), testing::ElementsAre(longest));
}

TEST_F(RegistryOfWindows, IsReadWithTheRightToReadAlone) {
  registry_.Write(key_, "v", {RegistryType::kBinary, "x"});
  registry_.Write(place_->Key("Task\\Colonnes"), "1", {RegistryType::kBinary, "x"});
  Restrict(key_, "KRWD");  // to read, and to lift the restriction
  EXPECT_EQ(registry_.Read(key_, "v"), (RegistryValue{RegistryType::kBinary, "x"}));
  EXPECT_THAT(registry_.ValueNames(key_), SizeIs(1));
  EXPECT_THAT(registry_.SubkeyNames(key_), SizeIs(1));
  EXPECT_EQ(registry_.Write(key_, "v", {RegistryType::kBinary, "y"}), kRegistryAccessDenied);
  EXPECT_EQ(registry_.Read(key_, "v"), (RegistryValue{RegistryType::kBinary, "x"}));
  Restrict(key_, "KA");
}

TEST_F(RegistryOfWindows, GivesNothingOfAKeyThatMayNotBeRead) {
  registry_.Write(key_, "v", {RegistryType::kBinary, "x"});
  Restrict(key_, "WD");
  EXPECT_EQ(registry_.Read(key_, "v"), std::nullopt);
  EXPECT_THAT(registry_.ValueNames(key_), IsEmpty());
  EXPECT_THAT(registry_.SubkeyNames(key_), IsEmpty());
  Restrict(key_, "KA");
}

TEST_F(RegistryOfWindows, HasEachPredefinedRoot) {
  for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS,
                          HKEY_CURRENT_CONFIG}) {
    const auto number = static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(root));
    EXPECT_THAT(registry_.SubkeyNames({number, ""}), testing::Not(IsEmpty())) << number;
  }
}

TEST_F(RegistryOfWindows, TakesNoOtherHandleForARoot) {
  registry_.Write(key_, "v", {RegistryType::kBinary, "x"});
  HKEY open = nullptr;
  ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, key_.path.c_str(), 0, KEY_READ | KEY_WRITE, &open), 0);
  const auto number = static_cast<std::int32_t>(reinterpret_cast<std::uintptr_t>(open));
  EXPECT_EQ(registry_.Read({number, ""}, "v"), std::nullopt);
  EXPECT_EQ(registry_.Write({number, "A"}, "v", {}), 6);
  EXPECT_EQ(registry_.DeleteKey({number, "A"}), kRegistryNotFound);
  RegCloseKey(open);
}

TEST_F(RegistryOfWindows, ClosesTheKeysThatItOpens) {
  registry_.Write(key_, "v", {RegistryType::kBinary, "x"});
  const auto next_handle = [] {
    const HANDLE handle = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(handle);
    return handle;
  };
  const HANDLE before = next_handle();
  for (int i = 0; i < 10; ++i) {
    registry_.Read(key_, "v");
    registry_.Read(key_, "w");
    registry_.Write(key_, "v", {RegistryType::kBinary, "x"});
    registry_.ValueNames(key_);
    registry_.SubkeyNames(key_);
    registry_.DeleteKey(place_->Key(""));
  }
  EXPECT_EQ(next_handle(), before) << "the system gives the lowest free one";
}

}  // namespace
}  // namespace imptable
