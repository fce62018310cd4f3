#ifndef DIALOGS_BUSY_SCOPE_H_
#define DIALOGS_BUSY_SCOPE_H_

namespace imptable {

/// Sets a flag while it lives.
class BusyScope {
 public:
  explicit BusyScope(bool& busy) : busy_(busy) { busy_ = true; }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;
  ~BusyScope() { busy_ = false; }

 private:
  bool& busy_;
};

}  // namespace imptable

#endif  // DIALOGS_BUSY_SCOPE_H_
