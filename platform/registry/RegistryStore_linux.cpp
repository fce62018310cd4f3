#include <stdexcept>
#include <unordered_set>
#include <utility>

#include "platform/registry/RegistryFile.h"
#include "platform/registry/RegistryPath.h"
#include "platform/registry/RegistryStore.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

RegistryValue ValueAt(const RegistryQuery& query, int type_column) {
  return {static_cast<RegistryType>(query.Integer(type_column)), query.Bytes(type_column + 1)};
}

std::string Joined(const std::string& path, const std::string& name) {
  return path.empty() ? name : path + "\\" + name;
}

}  // namespace

bool RegistryStore::HasRoot(std::int32_t root) {
  return root == kHkeyLocalMachine || root == kHkeyCurrentUser;
}

RegistryStore::RegistryStore(const std::string& path, std::vector<RegistryEdit> first_edits,
                             std::chrono::milliseconds lock_wait)
    : path_(path), first_edits_(std::move(first_edits)), lock_wait_(lock_wait) {
  Opened();
}

RegistryStore::~RegistryStore() = default;

bool RegistryStore::Exists() const { return Opened() != nullptr; }

RegistryFile* RegistryStore::Opened() const {
  if (has_tables_) return file_.get();
  if (file_ == nullptr && RegistryFile::IsThere(path_)) {
    file_ = std::make_unique<RegistryFile>(path_, lock_wait_);
  }
  has_tables_ = file_ != nullptr && file_->HasTables();
  return has_tables_ ? file_.get() : nullptr;
}

RegistryFile& RegistryStore::Created() {
  if (RegistryFile* const file = Opened()) return *file;
  if (file_ == nullptr) file_ = std::make_unique<RegistryFile>(path_, lock_wait_);
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kWrite);
  if (!file_->HasTables()) {  // else another process was faster
    file_->CreateTables();
    Carry(first_edits_);
  }
  transaction.Commit();
  has_tables_ = true;
  return *file_;
}

RegistryStore::Moment::Moment(const RegistryStore& store) {
  if (RegistryFile* const file = store.Opened()) {
    transaction_ = std::make_unique<RegistryTransaction>(*file, RegistryTransaction::Kind::kRead);
  }
}

RegistryStore::Moment::~Moment() = default;

std::optional<RegistryValue> RegistryStore::Read(const KeyPath& key, std::string_view name) const {
  if (Opened() == nullptr) return std::nullopt;
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kRead);
  std::optional<RegistryValue> value;
  if (const auto id = FindKey(key)) {
    RegistryQuery query(*file_, "SELECT type, data FROM \"values\" WHERE key = ? AND folded = ?");
    if (query.Bind(*id).BindText(FoldName(name)).Step()) value = ValueAt(query, 0);
  }
  transaction.Commit();
  return value;
}

bool RegistryStore::KeyExists(const KeyPath& key) const {
  if (Opened() == nullptr) return false;
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kRead);
  const bool exists = FindKey(key).has_value();
  transaction.Commit();
  return exists;
}

std::vector<NamedValue> RegistryStore::Values(const KeyPath& key) const {
  if (Opened() == nullptr) return {};
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kRead);
  std::vector<NamedValue> values;
  if (const auto id = FindKey(key)) values = ValuesOf(*id);
  transaction.Commit();
  return values;
}

std::vector<std::string> RegistryStore::ValueNames(const KeyPath& key) const {
  if (Opened() == nullptr) return {};
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kRead);
  std::vector<std::string> names;
  if (const auto id = FindKey(key)) {
    RegistryQuery query(*file_, "SELECT name FROM \"values\" WHERE key = ? ORDER BY id");
    query.Bind(*id);
    while (query.Step()) names.push_back(query.Bytes(0));
  }
  transaction.Commit();
  return names;
}

std::vector<std::string> RegistryStore::SubkeyNames(const KeyPath& key) const {
  if (Opened() == nullptr) return {};
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kRead);
  std::vector<std::string> names;
  if (const auto id = FindKey(key)) {
    RegistryQuery query(*file_, "SELECT name FROM keys WHERE parent = ? ORDER BY folded");
    query.Bind(*id);
    while (query.Step()) names.push_back(query.Bytes(0));
  }
  transaction.Commit();
  return names;
}

std::vector<StoredKey> RegistryStore::Tree(const KeyPath& key) const {
  struct Pending {
    std::int64_t id;
    std::string path;
  };
  if (Opened() == nullptr) return {};
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kRead);
  std::vector<Pending> pending;
  std::string stored_path;
  if (const auto id = FindKey(key, &stored_path)) pending.push_back({*id, stored_path});
  std::vector<StoredKey> tree;
  std::unordered_set<std::int64_t> seen;
  while (!pending.empty()) {
    const Pending current = std::move(pending.back());
    pending.pop_back();
    if (!seen.insert(current.id).second) {
      file_->Fail(RegistryFileFault::kDamaged, "a key is stored below itself");
    }
    tree.push_back({{key.root, current.path}, ValuesOf(current.id)});
    RegistryQuery query(*file_, "SELECT id, name FROM keys WHERE parent = ? ORDER BY folded DESC");
    query.Bind(current.id);
    while (query.Step()) {
      pending.push_back({query.Integer(0), Joined(current.path, query.Bytes(1))});
    }
  }
  transaction.Commit();
  return tree;
}

void RegistryStore::Write(const KeyPath& key, std::string_view name, const RegistryValue& value) {
  RegistryTransaction transaction(Created(), RegistryTransaction::Kind::kWrite);
  SetValue(key, name, value);
  transaction.Commit();
}

bool RegistryStore::DeleteValue(const KeyPath& key, std::string_view name) {
  if (Opened() == nullptr) return false;
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kWrite);
  const bool found = RemoveValue(key, name);
  transaction.Commit();
  return found;
}

RegistryStore::KeyDeletion RegistryStore::DeleteKey(const KeyPath& key) {
  if (Opened() == nullptr) {
    return HasRoot(key.root) && PathParts(key.path).empty() ? KeyDeletion::kRefused
                                                            : KeyDeletion::kAbsent;
  }
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kWrite);
  const auto id = FindKey(key);
  if (!id) return KeyDeletion::kAbsent;
  if (*id == key.root) return KeyDeletion::kRefused;
  {
    RegistryQuery subkeys(*file_, "SELECT 1 FROM keys WHERE parent = ? LIMIT 1");
    if (subkeys.Bind(*id).Step()) return KeyDeletion::kRefused;
  }
  RegistryQuery(*file_, "DELETE FROM keys WHERE id = ?").Bind(*id).Step();
  transaction.Commit();
  return KeyDeletion::kDone;
}

bool RegistryStore::DeleteTree(const KeyPath& key) {
  if (Opened() == nullptr) return false;
  RegistryTransaction transaction(*file_, RegistryTransaction::Kind::kWrite);
  const bool found = RemoveTree(key);
  transaction.Commit();
  return found;
}

void RegistryStore::Apply(const std::vector<RegistryEdit>& edits) {
  RegistryTransaction transaction(Created(), RegistryTransaction::Kind::kWrite);
  Carry(edits);
  transaction.Commit();
}

void RegistryStore::Together(const std::function<void()>& work) {
  RegistryTransaction transaction(Created(), RegistryTransaction::Kind::kWrite);
  work();
  transaction.Commit();
}

std::optional<std::int64_t> RegistryStore::FindKey(const KeyPath& key,
                                                   std::string* stored_path) const {
  if (!HasRoot(key.root)) return std::nullopt;
  std::int64_t id = key.root;
  for (std::string_view part : PathParts(key.path)) {
    RegistryQuery query(*file_, "SELECT id, name FROM keys WHERE parent = ? AND folded = ?");
    if (!query.Bind(id).BindText(FoldName(part)).Step()) return std::nullopt;
    id = query.Integer(0);
    if (stored_path != nullptr) *stored_path = Joined(*stored_path, query.Bytes(1));
  }
  return id;
}

std::int64_t RegistryStore::EnsureKey(const KeyPath& key) {
  if (!HasRoot(key.root)) throw std::invalid_argument("no such registry root");
  std::int64_t id = key.root;
  for (std::string_view part : PathParts(key.path)) {
    const std::string folded = FoldName(part);
    RegistryQuery query(*file_, "SELECT id FROM keys WHERE parent = ? AND folded = ?");
    if (query.Bind(id).BindText(folded).Step()) {
      id = query.Integer(0);
    } else {
      RegistryQuery insertion(*file_, "INSERT INTO keys (parent, name, folded) VALUES (?, ?, ?)");
      insertion.Bind(id).BindText(part).BindText(folded).Step();
      id = file_->LastInsertedRow();
    }
  }
  return id;
}

std::vector<NamedValue> RegistryStore::ValuesOf(std::int64_t key) const {
  RegistryQuery query(*file_, "SELECT name, type, data FROM \"values\" WHERE key = ? ORDER BY id");
  query.Bind(key);
  std::vector<NamedValue> values;
  while (query.Step()) values.push_back({query.Bytes(0), ValueAt(query, 1)});
  return values;
}

void RegistryStore::Carry(const std::vector<RegistryEdit>& edits) {
  for (const RegistryEdit& edit : edits) {
    switch (edit.action) {
      case RegistryEdit::Action::kCreateKey:
        EnsureKey(edit.key);
        break;
      case RegistryEdit::Action::kDeleteTree:
        RemoveTree(edit.key);
        break;
      case RegistryEdit::Action::kSetValue:
        SetValue(edit.key, edit.name, edit.value);
        break;
      case RegistryEdit::Action::kDeleteValue:
        RemoveValue(edit.key, edit.name);
        break;
    }
  }
}

void RegistryStore::SetValue(const KeyPath& key, std::string_view name,
                             const RegistryValue& value) {
  const std::int64_t id = EnsureKey(key);
  RegistryQuery(
      *file_,
      "INSERT INTO \"values\" (key, name, folded, type, data) VALUES (?, ?, ?, ?, ?)"
      " ON CONFLICT (key, folded) DO UPDATE SET type = excluded.type, data = excluded.data")
      .Bind(id)
      .BindText(name)
      .BindText(FoldName(name))
      .Bind(static_cast<std::int64_t>(value.type))
      .BindBlob(value.data)
      .Step();
}

bool RegistryStore::RemoveValue(const KeyPath& key, std::string_view name) {
  const auto id = FindKey(key);
  if (!id) return false;
  RegistryQuery query(*file_, "DELETE FROM \"values\" WHERE key = ? AND folded = ? RETURNING id");
  return query.Bind(*id).BindText(FoldName(name)).Step();
}

bool RegistryStore::RemoveTree(const KeyPath& key) {
  const auto id = FindKey(key);
  if (!id) return false;
  RegistryQuery(*file_,
                "WITH RECURSIVE doomed (id) AS (VALUES (?) UNION"
                " SELECT keys.id FROM keys JOIN doomed ON keys.parent = doomed.id)"
                " DELETE FROM keys WHERE id IN doomed AND id > 0")
      .Bind(*id)
      .Step();
  if (*id == key.root)
    RegistryQuery(*file_, "DELETE FROM \"values\" WHERE key = ?").Bind(*id).Step();
  return true;
}

}  // namespace imptable
