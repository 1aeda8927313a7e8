#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QTemporaryDir>

namespace zenutest {

// Makes a German locale with 8-bit characters that of the process for as long as it lives: the
// decimal point is a comma, and the byte 0xe4 is a small letter. Where the system has none it is
// made in a temporary directory. Tests skip when that is not possible either.
class GermanLocale
{
public:
    GermanLocale();
    ~GermanLocale();
    GermanLocale(GermanLocale const &) = delete;
    GermanLocale & operator=(GermanLocale const &) = delete;

    bool isActive() const;

private:
    QByteArray m_before;
    QByteArray m_pathBefore;
    QTemporaryDir m_directory;
};

} // namespace zenutest
