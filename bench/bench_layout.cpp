// Laying out the icon grid for 2,000 apps in 20 bunches on a 1920 x 1080 screen's panel: the
// whole layout (row and column search, icon shrinking, cells and strips) must stay within 2 ms.
#include "browser/layout/hviconlayout.h"

#include <benchmark/benchmark.h>

namespace {
const QList<qint64> TwentyBunches(20, 100);
const QSizeF PanelMaximum(1872, 1032);

HVIconLayoutPreferences preferences(int orientation, bool minimize)
{
    HVIconLayoutPreferences p;
    p.groupOrientation = orientation;
    p.minimizeEmptyCells = minimize;
    return p;
}

void layoutSideBySide(benchmark::State& state)
{
    const HVIconLayoutPreferences p = preferences(2, state.range(0) != 0);
    for (auto _ : state) {
        HVIconLayout layout = HVIconLayout::forGroup(1, false, TwentyBunches, p, PanelMaximum);
        benchmark::DoNotOptimize(layout);
    }
}
BENCHMARK(layoutSideBySide)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void layoutStacked(benchmark::State& state)
{
    const HVIconLayoutPreferences p = preferences(1, false);
    for (auto _ : state) {
        HVIconLayout layout = HVIconLayout::forGroup(1, false, TwentyBunches, p, PanelMaximum);
        benchmark::DoNotOptimize(layout);
    }
}
BENCHMARK(layoutStacked)->Unit(benchmark::kMicrosecond);

void layoutFlat(benchmark::State& state)
{
    const HVIconLayoutPreferences p = preferences(0, false);
    for (auto _ : state) {
        HVIconLayout layout = HVIconLayout::forGroup(1, false, TwentyBunches, p, PanelMaximum);
        benchmark::DoNotOptimize(layout);
    }
}
BENCHMARK(layoutFlat)->Unit(benchmark::kMicrosecond);

// Hit testing a point in the last bunch, as the pointer moves.
void hitTest(benchmark::State& state)
{
    const HVIconLayout layout = HVIconLayout::forGroup(1, false, TwentyBunches, {}, PanelMaximum);
    const QPointF point(layout.viewSize().width() - 20, layout.viewSize().height() - 20);
    for (auto _ : state)
        benchmark::DoNotOptimize(layout.coordsOfPoint(point));
}
BENCHMARK(hitTest)->Unit(benchmark::kMicrosecond);
} // namespace

BENCHMARK_MAIN();
