#pragma once
// A value header that reaches up into the store: the layer check must refuse it.
#include "VLANKit/store/VLANStore.h"
