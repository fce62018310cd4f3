#include "tests/dialogs/ToolkitComplaints.h"

#include <glib.h>
#include <wx/debug.h>
#include <wx/string.h>

#include <mutex>
#include <utility>

namespace imptable {
namespace {

/// Complaints may come from any thread.
class Complaints {
 public:
  void Add(std::string text) {
    const std::lock_guard lock(mutex_);
    texts_.push_back(std::move(text));
  }
  std::vector<std::string> Take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(texts_, {});
  }

 private:
  std::mutex mutex_;
  std::vector<std::string> texts_;
};

Complaints& Kept() {
  static Complaints complaints;
  return complaints;
}

GLogWriterOutput KeepAndWrite(GLogLevelFlags level, const GLogField* fields, gsize count,
                              gpointer data) {
  constexpr unsigned kComplaints = G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING;
  if ((static_cast<unsigned>(level) & kComplaints) != 0) {
    gchar* const text = g_log_writer_format_fields(level, fields, count, FALSE);
    Kept().Add(text);
    g_free(text);
  }
  return g_log_writer_default(level, fields, count, data);
}

void KeepAssertion(const wxString& file, int line, const wxString& function,
                   const wxString& condition, const wxString& message) {
  Kept().Add(file.utf8_string() + ':' + std::to_string(line) + ' ' + function.utf8_string() + ": " +
             condition.utf8_string() + ' ' + message.utf8_string());
}

}  // namespace

void KeepToolkitComplaints() {
  g_log_set_writer_func(KeepAndWrite, nullptr, nullptr);
  wxSetAssertHandler(KeepAssertion);
}

std::vector<std::string> TakeToolkitComplaints() { return Kept().Take(); }

}  // namespace imptable
