#pragma once

#include <QtCore/QSizeF>
#include <QtCore/QString>
#include <QtGui/QFont>

/// `font`, set narrower and then smaller until `text` fits into `box`, but not under `smallestSize` pixels.
QFont FittedFont(QFont font, const QString& text, QSizeF box, int smallestSize = 6);
