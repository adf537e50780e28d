#pragma once

/// Tells the toolkit how screen readers see the widgets that it doesn't know by itself: windows and canvases.
void InstallAccessibility();
