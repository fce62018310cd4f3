#ifndef TESTS_WIN32_DIALOGS_PICTURES_STORED_TASK_H_
#define TESTS_WIN32_DIALOGS_PICTURES_STORED_TASK_H_

namespace imptable {

/// The task "T1" of scenario "S1" and two variables in the registry, and its file on drive C, while
/// it lives.
class StoredTask {
 public:
  /// @throws std::runtime_error  when one of them can't be written.
  StoredTask();
  StoredTask(const StoredTask&) = delete;
  StoredTask& operator=(const StoredTask&) = delete;
  ~StoredTask();
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_PICTURES_STORED_TASK_H_
