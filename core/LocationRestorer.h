#ifndef CORE_LOCATION_RESTORER_H_
#define CORE_LOCATION_RESTORER_H_

#include <utility>

#include "platform/registry/Registry.h"

namespace imptable {

/// Puts the current registry location back when it is destroyed.
class LocationRestorer {
 public:
  /// @param location  borrowed.
  explicit LocationRestorer(KeyPath& location) : location_(location), saved_(location) {}
  LocationRestorer(const LocationRestorer&) = delete;
  LocationRestorer& operator=(const LocationRestorer&) = delete;
  ~LocationRestorer() { location_ = std::move(saved_); }

 private:
  KeyPath& location_;
  KeyPath saved_;
};

}  // namespace imptable

#endif  // CORE_LOCATION_RESTORER_H_
