#include "IniStore.h"

#include "ValueText.h"

#include <zenu/overlay/NarrowText.h>

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPen>

QString iniKey(QString const & name)
{
    QString key;
    QChar const slash = QLatin1Char('/');
    for (qsizetype i = 0; i < name.size(); ++i) {
        QChar const c = name[i];
        bool const dividesNames = c == slash && i > 0 && i + 1 < name.size() &&
                                  name[i - 1] != slash && name[i + 1] != slash;
        if (c == QLatin1Char('~') || c == QLatin1Char('\\') || (c == slash && !dividesNames)) {
            key += QStringLiteral("~%1").arg(uint(c.unicode()), 2, 16, QLatin1Char('0'));
        } else {
            key += c;
        }
    }
    return key;
}

IniStore::IniStore(QString const & file)
    : m_settings(file, QSettings::IniFormat)
{
}

void IniStore::clear()
{
    m_settings.clear();
}

// The first error of a QSettings stays, and a line in the file that it does not understand is one.
// So the file is read and written through one object, and another one tells of the writing alone:
// both share what m_settings holds.
bool IniStore::sync()
{
    QSettings(m_settings.fileName(), QSettings::IniFormat).sync();
    QSettings writer(m_settings.fileName(), QSettings::IniFormat);
    writer.sync();
    return writer.status() == QSettings::NoError;
}

bool IniStore::readColor(char const * name, QColor * value)
{
    return readValue(name, value);
}

bool IniStore::readBool(char const * name, bool * value)
{
    std::optional<QString> const kept = text(name);
    bool const isTrue = kept == QLatin1String("true");
    if (!isTrue && kept != QLatin1String("false")) {
        return false;
    }
    *value = isTrue;
    return true;
}

bool IniStore::readInt(char const * name, int * value)
{
    return readNumber(name, value, [](QString const & t, bool * ok) { return t.toInt(ok); });
}

bool IniStore::readUInt(char const * name, unsigned int * value)
{
    return readNumber(name, value, [](QString const & t, bool * ok) { return t.toUInt(ok); });
}

bool IniStore::readInt64(char const * name, long long * value)
{
    return readNumber(name, value, [](QString const & t, bool * ok) { return t.toLongLong(ok); });
}

bool IniStore::readPen(char const * name, QPen * value)
{
    return readValue(name, value);
}

bool IniStore::readFont(char const * name, QFont * value)
{
    return readValue(name, value);
}

bool IniStore::readBrush(char const * name, QBrush * value)
{
    return readValue(name, value);
}

bool IniStore::readString(char const * name, QString * value)
{
    std::optional<QString> const kept = text(name);
    if (!kept) {
        return false;
    }
    *value = *kept;
    return true;
}

void IniStore::writeColor(char const * name, QColor const & value)
{
    setText(name, toText(value));
}

void IniStore::writeBool(char const * name, bool value)
{
    setText(name, value ? QStringLiteral("true") : QStringLiteral("false"));
}

void IniStore::writeInt(char const * name, int value)
{
    setText(name, QString::number(value));
}

void IniStore::writeUInt(char const * name, unsigned int value)
{
    setText(name, QString::number(value));
}

void IniStore::writeInt64(char const * name, long long const & value)
{
    setText(name, QString::number(value));
}

void IniStore::writePen(char const * name, QPen const & value)
{
    setText(name, toText(value));
}

void IniStore::writeFont(char const * name, QFont const & value)
{
    setText(name, toText(value));
}

void IniStore::writeBrush(char const * name, QBrush const & value)
{
    setText(name, toText(value));
}

void IniStore::writeString(char const * name, char const * value)
{
    setText(name, zenu::chars2qstring(value));
}

// A text with commas that someone wrote by hand, without quotes, arrives as a list.
std::optional<QString> IniStore::text(char const * name) const
{
    QString const key = iniKey(zenu::chars2qstring(name));
    if (key.isEmpty() || !m_settings.contains(key)) {
        return std::nullopt;
    }
    QVariant const value = m_settings.value(key);
    if (value.typeId() == QMetaType::QStringList) {
        return value.toStringList().join(QLatin1Char(','));
    }
    if (value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return value.toString();
}

void IniStore::setText(char const * name, QString const & text)
{
    QString const key = iniKey(zenu::chars2qstring(name));
    if (!key.isEmpty()) {
        m_settings.setValue(key, text.isNull() ? QLatin1String("") : text);
    }
}

template <typename Value>
bool IniStore::readValue(char const * name, Value * value) const
{
    std::optional<QString> const kept = text(name);
    return kept && fromText(*kept, value);
}

template <typename Number, typename Convert>
bool IniStore::readNumber(char const * name, Number * value, Convert convert) const
{
    std::optional<QString> const kept = text(name);
    bool isNumber = false;
    Number const number = kept ? convert(*kept, &isNumber) : Number{};
    if (isNumber) {
        *value = number;
    }
    return isNumber;
}
