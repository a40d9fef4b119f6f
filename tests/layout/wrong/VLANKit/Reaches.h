#pragma once
// A library header that reaches into the application: the layout check must refuse it.
#include "OrvaneApp/model/AppModel.h"

#include <QWidget>
