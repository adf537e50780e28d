#pragma once

#include <QtWidgets/QWidget>
#include <string>

/// Installs the accessible interfaces through which screen readers see our windows and canvases.
void InstallAccessibility();

/// Has an active screen reader speak `text` after this event. Replaces a queued text of the same canvas.
void Speak(QWidget& canvas, const std::string& text);
