#pragma once
#include "frame/window/refresh.h"
#include <QWidget>
