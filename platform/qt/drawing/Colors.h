#pragma once

#include <QtGui/QColor>

#include "platform/Color.h"

inline QColor ToQColor(Color color) { return {color.Red(), color.Green(), color.Blue()}; }

inline Color ToColor(const QColor& color) { return RGB(color.red(), color.green(), color.blue()); }
