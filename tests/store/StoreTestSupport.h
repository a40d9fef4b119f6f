#pragma once

// The store fixture serves the model's tests too, so it lives with the shared test support.
#include "tests/support/StoreTestSupport.h"
