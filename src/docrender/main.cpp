// nimbo-docrender: makes Nimbo's documents into PDF at build time from their Markdown sources,
// so their words stay editable text. "--steps" puts each part between "<!-- next page -->" lines
// on a small page of its own (the welcome tour, one step a page); "--flowing" lays the whole text
// out on A4 pages (the user guide).
#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>
#include <QTextStream>

namespace {
constexpr double StepPageWidth = 480;  // points
constexpr double StepPageHeight = 336; // points
constexpr double StepMargin = 28;      // points

void prepare(QTextDocument& document, const QString& markdown, double pointSize)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(pointSize);
    document.setDefaultFont(font);
    document.setMarkdown(markdown);
}

bool writeSteps(const QStringList& steps, const QString& title, const QString& output)
{
    QPdfWriter writer(output);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Nimbo"));
    writer.setPageSize(QPageSize(QSizeF(StepPageWidth, StepPageHeight), QPageSize::Point));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(72);
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    for (qsizetype i = 0; i < steps.size(); ++i) {
        if (i > 0)
            writer.newPage();
        QTextDocument document;
        prepare(document, steps.at(i), 12);
        document.setTextWidth(StepPageWidth - 2 * StepMargin);
        painter.save();
        painter.translate(StepMargin, StepMargin);
        document.drawContents(&painter);
        painter.restore();
    }
    return painter.end();
}

bool writeFlowing(const QString& markdown, const QString& title, const QString& output)
{
    QPdfWriter writer(output);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Nimbo"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
    QTextDocument document;
    prepare(document, markdown, 11);
    document.print(&writer);
    return true;
}
} // namespace

int main(int argc, char* argv[])
{
    QGuiApplication app(argc, argv);
    const QStringList args = QGuiApplication::arguments();
    const QString mode = args.value(1);
    if (args.size() != 5 || (mode != QLatin1String("--steps") && mode != QLatin1String("--flowing"))) {
        QTextStream(stderr) << "usage: nimbo-docrender --steps|--flowing SOURCE.md TITLE OUT.pdf\n";
        return 2;
    }
    QFile source(args.at(2));
    if (!source.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << "nimbo-docrender: cannot read " << args.at(2) << "\n";
        return 1;
    }
    const QString markdown = QString::fromUtf8(source.readAll());
    const QString title = args.at(3);
    const QString output = args.at(4);
    if (mode == QLatin1String("--flowing"))
        return writeFlowing(markdown, title, output) ? 0 : 1;
    QStringList steps = markdown.split(
        QRegularExpression(QStringLiteral("^<!-- next page -->$"), QRegularExpression::MultilineOption));
    steps.removeIf([](const QString& step) { return step.trimmed().isEmpty(); });
    return writeSteps(steps, title, output) ? 0 : 1;
}
