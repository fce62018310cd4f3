#ifndef TESTS_DRIVERS_DRIVERAPI_H_
#define TESTS_DRIVERS_DRIVERAPI_H_

// Everything in the driver is hidden by default. Only what these headers declare is visible
// outside.
#pragma GCC visibility push(default)
#include <sql.h>
#include <sqlext.h>
#pragma GCC visibility pop

static_assert(sizeof(SQLLEN) == sizeof(SQLPOINTER), "the headers are those of another system");

#endif  // TESTS_DRIVERS_DRIVERAPI_H_
