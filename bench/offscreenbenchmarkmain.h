// The main of a benchmark that needs widgets but no screen: Qt draws off screen.
#pragma once

#include <QApplication>

#include <benchmark/benchmark.h>

inline int runBenchmarksOffscreen(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
