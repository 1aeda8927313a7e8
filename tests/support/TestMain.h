#pragma once

#include <QtTest/QtTest>

namespace zenutest {

// Base of every test class: any warning that the test did not announce with QTest::ignoreMessage
// fails it. What the offscreen platform says that it can't do for a window does not count.
class Test : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
    }
};

using Factory = QObject * (*)();

// Enters a test class into the program's list; returns 0 so that it can initialise a static.
int registerTest(Factory factory);

} // namespace zenutest

// Stands once in each tst_*.cpp, before its moc include: enters the class into the program of its
// folder.
#define ZENU_TEST(TestClass)                                                                       \
    [[maybe_unused]] static int const registered_##TestClass =                                     \
        zenutest::registerTest([]() -> QObject * { return new TestClass; });
