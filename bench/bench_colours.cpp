// The colour analysis of real application icons: every apps icon of Papirus and the full-colour
// legacy icons of Adwaita, drawn at 128 px as nimboctl colors draws them, each analysed as a
// record analyses a new icon (dominant colours, sort value, display list). Reports the median
// and 95th percentile per icon.
//
// Besides the benchmark, three modes serve bench/compare-colours.sh:
//   bench_colours --write-png DIR [STEP]  draws every STEP-th icon and writes it to DIR as a PNG
//   bench_colours --time-png DIR          times the analysis of each PNG of DIR (5 runs each)
//                                         and prints: icons, median ms, 95th percentile ms
//   bench_colours --analyse-png DIR       analyses each PNG of DIR once (for callgrind; the
//                                         analysis is the function analyseIcon)
#include "colour/hvcolourstate.h"
#include "colour/imageextras.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QSet>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {
constexpr int IconEdge = 128;

struct IconFolder
{
    const char* path;
    const char* suffix;
};

// Papirus's apps icons (half of them are links to the others) and Adwaita's full-colour legacy
// icons (its apps folder holds only a symbolic icon).
const IconFolder IconFolders[] = {
    {"/usr/share/icons/Papirus/64x64/apps", ".svg"},
    {"/usr/share/icons/Adwaita/48x48/legacy", ".png"},
};

QStringList iconFiles()
{
    QStringList files;
    QSet<QString> seen;
    for (const IconFolder& folder : IconFolders) {
        QStringList names = QDir(folder.path).entryList({QString("*") + folder.suffix}, QDir::Files);
        names.sort();
        for (const QString& name : names) {
            if (name.contains(QLatin1String("symbolic")))
                continue;
            const QString real = QFileInfo(QDir(folder.path).filePath(name)).canonicalFilePath();
            if (!real.isEmpty() && !seen.contains(real)) {
                seen.insert(real);
                files.append(real);
            }
        }
    }
    return files;
}

QImage drawnIcon(const QString& path)
{
    const QSize size(IconEdge, IconEdge);
    QString error;
    const QImage image = HVImageExtras::readImage(path, size, &error);
    if (image.isNull())
        return QImage();
    return HVImageExtras::bitmapImageRepOfSize(image, size);
}

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

// One icon analysed as a record analyses a new icon.
__attribute__((noinline)) double analyseIcon(const QImage& icon)
{
    IconParameters params;
    params.iconSize = IconEdge;
    HVColourState state;
    state.setColorSortParameters(params, icon, QString());
    return state.colorSortValue();
}

struct Icons
{
    std::vector<QImage> images;
    Icons()
    {
        for (const QString& path : iconFiles()) {
            QImage icon = drawnIcon(path);
            if (!icon.isNull())
                images.push_back(std::move(icon));
        }
    }
};

const Icons& icons()
{
    static const Icons all;
    return all;
}

double percentile(std::vector<double> values, double p)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    return values[size_t(p * double(values.size() - 1) + 0.5)];
}

// Each iteration analyses every icon once; an icon's time is the median of its iterations.
void BM_AnalyseIcons128(benchmark::State& state)
{
    const std::vector<QImage>& images = icons().images;
    std::vector<std::vector<double>> times(images.size());
    for (auto _ : state) {
        for (size_t i = 0; i < images.size(); ++i) {
            const auto start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(analyseIcon(images[i]));
            const auto end = std::chrono::steady_clock::now();
            times[i].push_back(std::chrono::duration<double, std::milli>(end - start).count());
        }
    }
    std::vector<double> perIcon;
    for (const std::vector<double>& t : times)
        perIcon.push_back(percentile(t, 0.5));
    state.counters["icons"] = double(images.size());
    state.counters["median_ms"] = percentile(perIcon, 0.5);
    state.counters["p95_ms"] = percentile(perIcon, 0.95);
    state.counters["max_ms"] = percentile(perIcon, 1.0);
    state.SetItemsProcessed(state.iterations() * qint64(images.size()));
}
BENCHMARK(BM_AnalyseIcons128)->Iterations(5)->Unit(benchmark::kMillisecond)->UseRealTime();

int writePngs(const QString& dir, int step)
{
    QDir().mkpath(dir);
    const QStringList files = iconFiles();
    int written = 0;
    for (qsizetype i = 0; i < files.size(); i += std::max(step, 1)) {
        const QImage icon = drawnIcon(files.at(i));
        if (icon.isNull())
            continue;
        const QString name =
            QString("%1-%2.png").arg(i, 5, 10, QLatin1Char('0')).arg(QFileInfo(files.at(i)).baseName());
        if (icon.save(QDir(dir).filePath(name), "PNG"))
            ++written;
    }
    std::printf("%d\n", written);
    return written > 0 ? 0 : 1;
}

std::vector<QImage> readPngs(const QString& dir)
{
    std::vector<QImage> images;
    for (const QString& name : QDir(dir).entryList({"*.png"}, QDir::Files, QDir::Name)) {
        QImage icon = QImage(QDir(dir).filePath(name)).convertToFormat(QImage::Format_RGBA8888_Premultiplied);
        if (!icon.isNull())
            images.push_back(std::move(icon));
    }
    return images;
}

int timePngs(const QString& dir)
{
    const std::vector<QImage> images = readPngs(dir);
    std::vector<double> perIcon;
    for (const QImage& icon : images) {
        std::vector<double> runs;
        for (int run = 0; run < 5; ++run) {
            const auto start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(analyseIcon(icon));
            const auto end = std::chrono::steady_clock::now();
            runs.push_back(std::chrono::duration<double, std::milli>(end - start).count());
        }
        perIcon.push_back(percentile(runs, 0.5));
    }
    std::printf("%zu %.4f %.4f\n", images.size(), percentile(perIcon, 0.5), percentile(perIcon, 0.95));
    return images.empty() ? 1 : 0;
}

int analysePngs(const QString& dir)
{
    const std::vector<QImage> images = readPngs(dir);
    double sum = 0.0;
    for (const QImage& icon : images)
        sum += analyseIcon(icon);
    std::printf("%zu %g\n", images.size(), sum);
    return images.empty() ? 1 : 0;
}
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    qInstallMessageHandler(quiet); // icons without colours log a line each
    if (argc >= 3 && std::strcmp(argv[1], "--write-png") == 0)
        return writePngs(QString::fromLocal8Bit(argv[2]), argc >= 4 ? std::atoi(argv[3]) : 1);
    if (argc >= 3 && std::strcmp(argv[1], "--time-png") == 0)
        return timePngs(QString::fromLocal8Bit(argv[2]));
    if (argc >= 3 && std::strcmp(argv[1], "--analyse-png") == 0)
        return analysePngs(QString::fromLocal8Bit(argv[2]));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
