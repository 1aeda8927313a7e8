#include "tests/support/GermanLocale.h"

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>

#include <cctype>
#include <clocale>

namespace zenutest {

GermanLocale::GermanLocale()
    : m_before(std::setlocale(LC_ALL, nullptr))
    , m_pathBefore(qgetenv("LOCPATH"))
{
    if (std::setlocale(LC_ALL, "de_DE.ISO-8859-1") || std::setlocale(LC_ALL, "de_DE@euro")) {
        return;
    }
    QString const maker = QStandardPaths::findExecutable(QStringLiteral("localedef"));
    if (!maker.isEmpty()) {
        QProcess::execute(maker, {QStringLiteral("--no-archive"), QStringLiteral("-i"),
                                  QStringLiteral("de_DE"), QStringLiteral("-f"),
                                  QStringLiteral("ISO-8859-1"),
                                  m_directory.filePath(QStringLiteral("de_DE.ISO-8859-1"))});
        qputenv("LOCPATH", m_directory.path().toLocal8Bit());
        std::setlocale(LC_ALL, "de_DE.ISO-8859-1");
    }
}

GermanLocale::~GermanLocale()
{
    if (m_pathBefore.isNull()) {
        qunsetenv("LOCPATH");
    } else {
        qputenv("LOCPATH", m_pathBefore);
    }
    std::setlocale(LC_ALL, m_before.constData());
}

bool GermanLocale::isActive() const
{
    return *std::localeconv()->decimal_point == ',' && std::toupper(0xe4) == 0xc4;
}

} // namespace zenutest
