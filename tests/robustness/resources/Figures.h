#ifndef TESTS_ROBUSTNESS_RESOURCES_FIGURES_H_
#define TESTS_ROBUSTNESS_RESOURCES_FIGURES_H_

#include <iostream>
#include <string>

namespace imptable {

/// Tells what was tried.
inline void Figure(const std::string& text) { std::cout << "  " << text << std::endl; }

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_RESOURCES_FIGURES_H_
