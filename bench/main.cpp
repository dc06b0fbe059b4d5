#include "benchtable.h"

#include <QApplication>

void benchModel(BenchTable& table);
void benchInterchange(BenchTable& table);
void benchProject(BenchTable& table, const QString& cli);
void benchCli(BenchTable& table, const QString& cli);
void benchCanvas(BenchTable& table);
void benchEditors(BenchTable& table);
void benchImageEditor(BenchTable& table);

int main(int argc, char** argv)
{
    // The canvas figures paint real widgets; without a display they paint
    // offscreen, as the tests do.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    BenchTable table;
    benchModel(table);
    benchInterchange(table);
    benchProject(table, TINTOREL_CLI);
    benchCli(table, TINTOREL_CLI);
    benchCanvas(table);
    benchEditors(table);
    benchImageEditor(table);
    table.print();
    return table.allMet() ? 0 : 1;
}
