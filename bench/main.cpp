#include "benchtable.h"

#include <QGuiApplication>

void benchModel(BenchTable& table);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    BenchTable table;
    benchModel(table);
    table.print();
    return table.allMet() ? 0 : 1;
}
