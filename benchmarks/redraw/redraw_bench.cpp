#include <benchmark/benchmark.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "benchmarks/support/ProgramOffscreen.h"
#include "core/winMain.h"
#include "platform/Graphics.h"
#include "platform/Picture.h"

// Compares Redraw with drawing the same picture with cairo and with merely filling the surface.

namespace {

constexpr Int32 kSeconds = 1500;
constexpr double kScale = 0.95;

constexpr double kTurn = 6.283058;
constexpr double kTop = 4.7122935;

void DrawMark(cairo_t& context, double cx, double cy, double diameter, int i) {
    const bool isLong = i % 5 == 0;
    const double length = (isLong ? 10 : 5) * diameter / 100;
    const double cosine = std::cos(kTurn * i / 60);
    const double sine = std::sin(kTurn * i / 60);
    const double inner = diameter / 2 - length;
    const double x = std::trunc(cx + cosine * inner);
    const double y = std::trunc(cy + sine * inner);
    cairo_move_to(&context, x, y);
    cairo_line_to(&context, x + cosine * length, y + sine * length);
    cairo_set_line_width(&context, (isLong ? 2 : 1) * diameter / 100);
    cairo_stroke(&context);
}

/// Draws the same picture as Redraw with the default colours, without icon and text.
void DrawClockWithCairo(cairo_t& context, int width, int height, int seconds, double scale) {
    constexpr double kCircle = 2 * std::numbers::pi;
    constexpr double kGrey = 0x9F / 255.0;
    const double diameter = 0.97 * scale * std::min(width, height);
    const double x = std::trunc(width / 2.0);
    const double y = std::trunc(height / 2.0);
    cairo_set_source_rgb(&context, kGrey, kGrey, kGrey);
    cairo_paint(&context);
    cairo_set_source_rgb(&context, 1, 1, 1);
    cairo_arc(&context, x, y, diameter / 2, 0, kCircle);
    cairo_fill(&context);
    cairo_set_source_rgb(&context, 1, 0, 0);
    cairo_move_to(&context, x, y);
    cairo_arc(&context, x, y, diameter / 2, kTop - kTurn * seconds / 3600, kTop);
    cairo_close_path(&context);
    cairo_fill(&context);
    cairo_set_source_rgb(&context, 0, 0, 0);
    cairo_arc(&context, x, y, diameter / 2, 0, kCircle);
    cairo_set_line_width(&context, std::max(3 * diameter / 100, 1.0));
    cairo_stroke(&context);
    for (int i = 0; i < 60; ++i)
        DrawMark(context, width / 2.0, height / 2.0, diameter, i);
}

Int32 Side(const benchmark::State& state, std::size_t which) { return static_cast<Int32>(state.range(which)); }

void Redraw(benchmark::State& state) {
    const auto picture = NewPicture(Side(state, 0), Side(state, 1), 32);
    const Ref<Graphics> graphics = picture->Graphics();
    for (auto _ : state)
        winMain::Instance().Redraw(graphics, kSeconds, kScale, true, false);
}

void Cairo(benchmark::State& state) {
    const int width = Side(state, 0);
    const int height = Side(state, 1);
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* const context = cairo_create(surface);
    for (auto _ : state)
        DrawClockWithCairo(*context, width, height, kSeconds, kScale);
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

void Fill(benchmark::State& state) {
    const auto picture = NewPicture(Side(state, 0), Side(state, 1), 32);
    const Ref<Graphics> graphics = picture->Graphics();
    for (auto _ : state)
        graphics->FillRect(0, 0, picture->Width(), picture->Height());
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Args({320, 240})->Args({441, 229})->Args({1920, 1080})->Args({3840, 2160});
}

BENCHMARK(Redraw)->Apply(Sizes);
BENCHMARK(Cairo)->Apply(Sizes);
BENCHMARK(Fill)->Apply(Sizes);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const ProgramOffscreen program(argv[0]);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
