#pragma once
// A model header that pulls in widgets: the layout check must refuse it.
#include <QPushButton>
