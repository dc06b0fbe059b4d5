#include "benchtable.h"

#include <QApplication>
#include <functional>
#include <utility>

void benchModel(BenchTable& table);
void benchInterchange(BenchTable& table);
void benchProject(BenchTable& table, const QString& cli);
void benchCli(BenchTable& table, const QString& cli);
void benchCanvas(BenchTable& table);
void benchEditors(BenchTable& table);
void benchImageEditor(BenchTable& table);
void benchMapEditor(BenchTable& table);

// `tintorel_bench [GROUP...]` runs the groups named, or all of them.
int main(int argc, char** argv)
{
    // The canvas figures paint real widgets; without a display they paint
    // offscreen, as the tests do.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    BenchTable table;
    const std::pair<const char*, std::function<void()>> groups[] = {
        { "model", [&] { benchModel(table); } },
        { "interchange", [&] { benchInterchange(table); } },
        { "project", [&] { benchProject(table, TINTOREL_CLI); } },
        { "cli", [&] { benchCli(table, TINTOREL_CLI); } },
        { "canvas", [&] { benchCanvas(table); } },
        { "editors", [&] { benchEditors(table); } },
        { "image", [&] { benchImageEditor(table); } },
        { "map", [&] { benchMapEditor(table); } },
    };
    const QStringList chosen = application.arguments().mid(1);
    for (const auto& [name, run] : groups)
        if (chosen.isEmpty() || chosen.contains(QLatin1String(name)))
            run();
    table.print();
    return table.allMet() ? 0 : 1;
}
