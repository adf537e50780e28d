#pragma once

#include <QtGui/QFont>
#include <string>

/// The font behind one of the toolkit's names, "System" or "SmallSystem" or a family of the desktop. A size of 0 is the
/// name's own default; sizes are in logical pixels.
QFont FontNamed(const std::string& name, int pixelSize = 0);
