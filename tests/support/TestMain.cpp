#include "tests/support/TestMain.h"

#include <QApplication>

#include <memory>
#include <vector>

namespace zenutest {

namespace {

std::vector<Factory> & factories()
{
    static std::vector<Factory> list;
    return list;
}

} // namespace

int registerTest(Factory factory)
{
    factories().push_back(factory);
    return 0;
}

} // namespace zenutest

// Arguments go to every test class; "-class NAME" runs that class alone.
int main(int argc, char ** argv)
{
    QApplication application(argc, argv);
    QStringList arguments = application.arguments();
    QString only;
    if (qsizetype const at = arguments.indexOf(QStringLiteral("-class"));
        at > 0 && at + 1 < arguments.size()) {
        only = arguments.at(at + 1);
        arguments.remove(at, 2);
    }
    int failed = 0;
    int run = 0;
    for (zenutest::Factory factory : zenutest::factories()) {
        std::unique_ptr<QObject> const test(factory());
        if (!only.isEmpty() && QLatin1String(test->metaObject()->className()) != only) {
            continue;
        }
        ++run;
        failed += QTest::qExec(test.get(), arguments);
    }
    return run == 0 ? 1 : (failed == 0 ? 0 : 1);
}
