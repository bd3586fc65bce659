// SPDX-License-Identifier: MIT
// Trees and tables beside the toolkit's own, doing the same work on the same rows: prints the table
// of speeds. Takes the options of Google Benchmark, such as --benchmark_filter='build'.
#include "RatioTable.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    addBuildRows();
    addWriteRows();
    addLookupRows();
    addViewRows();
    addCopyRows();
    return RatioTable::run(argc, argv);
}
