#pragma once

#include <QtCore/QSizeF>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <string>

#include "platform/Color.h"

/// Returns the font for "System", "SmallSystem" or a family. The size is in logical pixels; 0 is the default.
QFont FontNamed(const std::string& name, int pixelSize = 0);

/// Returns `font`, condensed or shrunk so that `text` fits into `box`, but not below `smallestSize` pixels.
QFont FittedFont(QFont font, const QString& text, QSizeF box, int smallestSize = 6);

inline QString ToQString(const std::string& text) { return QString::fromStdString(text); }
inline QColor ToQColor(Color color) { return {color.Red(), color.Green(), color.Blue()}; }
inline Color ToColor(const QColor& color) { return RGB(color.red(), color.green(), color.blue()); }
