#include <benchmark/benchmark.h>

#include "benchmarks/redraw/clock_cairo.h"
#include "benchmarks/support/Stage.h"
#include "core/winMain.h"
#include "platform/Graphics.h"
#include "platform/Picture.h"

// Redraw beside the same picture drawn with cairo, and beside a plain fill of the surface.

namespace {

constexpr Int32 kSeconds = 1500;
constexpr double kScale = 0.95;

Int32 Side(const benchmark::State& state, std::size_t which) { return static_cast<Int32>(state.range(which)); }

void Redraw(benchmark::State& state) {
    const auto picture = NewPicture(Side(state, 0), Side(state, 1), 32);
    const Ref<Graphics> graphics = picture->Graphics();
    for (auto _ : state) {
        winMain::Instance().Redraw(graphics, kSeconds, kScale, true, false);
    }
}

void Cairo(benchmark::State& state) {
    const int width = Side(state, 0);
    const int height = Side(state, 1);
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* const context = cairo_create(surface);
    for (auto _ : state) {
        DrawClockWithCairo(*context, width, height, kSeconds, kScale);
    }
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

void Fill(benchmark::State& state) {
    const auto picture = NewPicture(Side(state, 0), Side(state, 1), 32);
    const Ref<Graphics> graphics = picture->Graphics();
    for (auto _ : state) {
        graphics->FillRect(0, 0, picture->Width(), picture->Height());
    }
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
    const Stage stage(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
