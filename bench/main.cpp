#include "benchtable.h"

#include <QCoreApplication>

void benchModel(BenchTable& table);
void benchInterchange(BenchTable& table);

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    BenchTable table;
    benchModel(table);
    benchInterchange(table);
    table.print();
    return table.allMet() ? 0 : 1;
}
