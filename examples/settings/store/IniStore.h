#pragma once

#include <zenu/config/IConfigStore.h>

#include <QSettings>

#include <optional>

// Settings in an INI file. Every value comes back exactly as it was written; what cannot be read is
// as if it were not there. A slash in a name makes a section.
class IniStore : public zenu::IConfigStore
{
public:
    explicit IniStore(QString const & file);

    // Forgets everything.
    void clear();
    // Writes what was changed into the file and reads what others have changed there; false when
    // the file cannot be written. Lines in it that make no sense do not matter.
    bool sync();
    QString fileName() const { return m_settings.fileName(); }

    bool readColor(char const * name, QColor * value) override;
    bool readBool(char const * name, bool * value) override;
    bool readInt(char const * name, int * value) override;
    bool readUInt(char const * name, unsigned int * value) override;
    bool readInt64(char const * name, long long * value) override;
    bool readPen(char const * name, QPen * value) override;
    bool readFont(char const * name, QFont * value) override;
    bool readBrush(char const * name, QBrush * value) override;
    bool readString(char const * name, QString * value) override;

    void writeColor(char const * name, QColor const & value) override;
    void writeBool(char const * name, bool value) override;
    void writeInt(char const * name, int value) override;
    void writeUInt(char const * name, unsigned int value) override;
    void writeInt64(char const * name, long long const & value) override;
    void writePen(char const * name, QPen const & value) override;
    void writeFont(char const * name, QFont const & value) override;
    void writeBrush(char const * name, QBrush const & value) override;
    void writeString(char const * name, char const * value) override;

private:
    std::optional<QString> text(char const * name) const;
    void setText(char const * name, QString const & text);
    template <typename Value>
    bool readValue(char const * name, Value * value) const;
    template <typename Number, typename Convert>
    bool readNumber(char const * name, Number * value, Convert convert) const;

    QSettings m_settings;
};

// The key of a name. A single slash stays; other slashes, backslashes and tildes, which QSettings
// would change or which the key itself needs, are written as a tilde and two hexadecimal digits.
QString iniKey(QString const & name);
