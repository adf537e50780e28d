#pragma once

#include <QtWidgets/QWidget>
#include <string>

/// Tells Qt how screen readers see our windows and canvases.
void InstallAccessibility();

/// Has an active screen reader speak a text for a canvas after the present event; of several texts, the last.
void Speak(QWidget& canvas, const std::string& text);
