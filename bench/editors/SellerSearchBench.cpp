// One key typed in the ERP search, from the key to the page's list drawn again, while the real
// ERP library answers from the demo data.

#include "catalogue/ProductLine.h"
#include "catalogue/SellerProduct.h"
#include "editors/SellerSearch.h"
#include "shell/AppState.h"

#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

QApplication &application()
{
    static int argc = 1;
    static char name[] = "bench_editors";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

/// What a page does on Changed: the list emptied and filled with the page of products.
void redraw(QTreeWidget &list, SellerSearch &search)
{
    list.clear();
    if (const auto lines = search.products()) {
        for (const auto &line : *lines) {
            const auto product = line->sellerProduct();
            list.addTopLevelItem(new QTreeWidgetItem(
                {QString::fromStdString(product->dovelID()),
                 QString::fromStdString(product->Description()),
                 QString::fromStdString(product->Reference())}));
        }
    }
    list.repaint();
}

void typeOneKeyInTheDescriptionSearch(benchmark::State &state)
{
    application();
    setenv("ASISTENTE_ERP_SIM_DATA", DEMO_ERP_DATA, 1);
    setenv("ASISTENTE_ERP_LIBRARY", ZRVNDLL_PATH, 1);
    gAppRunning = true;

    QWidget page;
    page.resize(800, 600);
    auto *search = new SellerSearch(&page);
    search->setGeometry(0, 0, 800, search->height());
    auto *list = new QTreeWidget(&page);
    list->setColumnCount(3);
    list->setGeometry(0, 200, 800, 400);
    int rows = 0;
    QObject::connect(search, &SellerSearch::Changed, [&] {
        redraw(*list, *search);
        rows = list->topLevelItemCount();
    });
    page.show();
    QTest::mouseClick(search->findChild<QRadioButton *>("Description"), Qt::LeftButton);
    auto *text = search->findChild<QLineEdit *>("SearchText");

    // Each key widens or narrows the search: "t" and back to the empty text.
    bool typed = false;
    for (auto _ : state) {
        if (typed)
            QTest::keyClick(text, Qt::Key_Backspace);
        else
            QTest::keyClick(text, 't');
        typed = !typed;
    }
    if (rows == 0 || !gAppRunning)
        state.SkipWithError("the search drew no list");
    state.counters["rows"] = rows;
}

} // namespace

BENCHMARK(typeOneKeyInTheDescriptionSearch)->Unit(benchmark::kMillisecond);
