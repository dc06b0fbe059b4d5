#include "benchtable.h"

#include <QCoreApplication>

void benchModel(BenchTable& table);
void benchInterchange(BenchTable& table);
void benchProject(BenchTable& table, const QString& cli);
void benchCli(BenchTable& table, const QString& cli);

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    BenchTable table;
    benchModel(table);
    benchInterchange(table);
    benchProject(table, TINTOREL_CLI);
    benchCli(table, TINTOREL_CLI);
    table.print();
    return table.allMet() ? 0 : 1;
}
