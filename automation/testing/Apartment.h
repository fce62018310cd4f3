#ifndef AUTOMATION_TESTING_APARTMENT_H_
#define AUTOMATION_TESTING_APARTMENT_H_

#include "automation/AutomationApi.h"

namespace imptable {

/// While it lives, the thread has automation as a host's user-interface thread does.
class Apartment {
 public:
  Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

}  // namespace imptable

#endif  // AUTOMATION_TESTING_APARTMENT_H_
