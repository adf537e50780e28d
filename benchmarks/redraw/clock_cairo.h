#pragma once

#include <cairo.h>

/// The picture that winMain::Redraw draws, with the default colours and without icon and text, drawn with cairo.
void DrawClockWithCairo(cairo_t& context, int width, int height, int seconds, double scale);
