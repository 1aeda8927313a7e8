#include <zenu/zenu.h>

#include <QApplication>
#include <QPixmap>

#include <cstdio>

// Shows a header with one item, and answers 0 when all went well.
int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    zenu::KHeader header;
    zenu::KHeaderItem const item("Name", nullptr, 1, 10, 120, 0);
    if (!header.insertItem(0, item) || header.getItemsCount() != 1) {
        std::puts("the header does not take an item");
        return 1;
    }
    header.resize(200, 20);
    header.show();
    return header.grab().isNull() ? 1 : 0;
}
