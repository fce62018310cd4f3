#ifndef TESTS_KIT_MANAGER_FUNCTION_H_
#define TESTS_KIT_MANAGER_FUNCTION_H_

namespace imptable {

/// The driver manager's own function of this name, for a test program that has put a function of
/// the same name before it.
void* ManagerFunction(const char* name);

}  // namespace imptable

#endif  // TESTS_KIT_MANAGER_FUNCTION_H_
