#ifndef TESTS_DIALOGS_TOOLKIT_COMPLAINTS_H_
#define TESTS_DIALOGS_TOOLKIT_COMPLAINTS_H_

#include <string>
#include <vector>

namespace imptable {

/// Keeps, from now on, every warning and error that the window toolkit prints; they are printed all
/// the same. To be called once, before the toolkit starts.
void KeepToolkitComplaints();

/// The complaints since the last call.
std::vector<std::string> TakeToolkitComplaints();

}  // namespace imptable

#endif  // TESTS_DIALOGS_TOOLKIT_COMPLAINTS_H_
