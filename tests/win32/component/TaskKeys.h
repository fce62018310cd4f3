#ifndef TESTS_WIN32_COMPONENT_TASK_KEYS_H_
#define TESTS_WIN32_COMPONENT_TASK_KEYS_H_

#include <string>

#include "platform/testing/TemporaryFolder.h"
#include "tests/win32/component/Client.h"

namespace imptable {

/// Tasks in a corner of the registry, with a folder for their reports; both go with it.
class TaskKeys {
 public:
  TaskKeys();
  TaskKeys(const TaskKeys&) = delete;
  TaskKeys& operator=(const TaskKeys&) = delete;
  ~TaskKeys();

  /// Makes a task whose data source doesn't exist, and points `task` to it.
  void MakeUnreachable(const ComPointer<_ImpTable>& task, const std::wstring& name) const;

  /// "Etat" of a task; -1 when there is none.
  LONG Status(const std::wstring& name) const;

  /// The report of a task's runs.
  std::string Report(const std::wstring& name) const;

 private:
  std::wstring path_;
  TemporaryFolder folder_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_COMPONENT_TASK_KEYS_H_
