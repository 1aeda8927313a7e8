#pragma once

#include "zenu/ZenuExport.h"

#include <memory>

class QBrush;
class QColor;
class QFont;
class QPen;

namespace zenu {

class ConfigTable;
class IConfigStore;
class IConfigVisitor;

/// A table of settings by number. Each is declared once, with a name and a default, as one of nine
/// types. The table keeps the default and, apart from it, the value that was set; only settings
/// that were set are saved.
///
/// Nothing is reported: an unknown id reads as the default value of the type that is asked for, and
/// so does a setting of another type; a set of either is dropped. Null names, texts, stores and
/// visitors are allowed.
///
/// A visitor or a store may call every operation of the table that calls it, but must not delete
/// it. A setting that is declared during a walk is not part of it.
class ZENU_EXPORT KConfig
{
public:
    /// An empty table.
    KConfig();

    /// Deletes all items; pointers from getString and getDefaultString die.
    ~KConfig();

    KConfig(KConfig const &) = delete;
    KConfig & operator=(KConfig const &) = delete;

    /// Declares setting `id` with the default `value`; it is not changed yet. A setting with a null
    /// or empty name is never persisted. Declared a second time, it starts anew; what it held is
    /// not used any more, but kept until the table goes, so that pointers to texts stay valid.
    void initColor(int id, char const * name, QColor const & value);
    void initBool(int id, char const * name, bool value);
    void initInt(int id, char const * name, int value);
    void initUInt(int id, char const * name, unsigned int value);
    void initInt64(int id, char const * name, long long const & value);
    void initPen(int id, char const * name, QPen const & value);
    void initFont(int id, char const * name, QFont const & value);
    void initBrush(int id, char const * name, QBrush const & value);
    void initString(int id, char const * name, char const * value);

    /// The value: what was set or loaded, or else the default. An unknown id and another type give
    /// black, false, 0, a black solid pen of width 0, the application's font at this time, a black
    /// solid brush and "". The text is the table's: that of a default lives as long as the table,
    /// that of a changed setting until its next setString or load, and it is never null.
    QColor getColor(int id) const;
    bool getBool(int id) const;
    int getInt(int id) const;
    unsigned int getUInt(int id) const;
    long long getInt64(int id) const;
    QPen getPen(int id) const;
    QFont getFont(int id) const;
    QBrush getBrush(int id) const;
    char const * getString(int id) const;

    /// Changes the value; the setting counts as changed from now on, even if `value` is the
    /// default. Of another type the value stays, and the setting counts as changed all the same.
    void setColor(int id, QColor const & value);
    void setBool(int id, bool value);
    void setInt(int id, int value);
    void setUInt(int id, unsigned int value);
    void setInt64(int id, long long const & value);
    void setPen(int id, QPen const & value);
    void setFont(int id, QFont const & value);
    void setBrush(int id, QBrush const & value);
    void setString(int id, char const * value);

    /// The default, whatever was set. An unknown id and another type are answered as by a get.
    QColor getDefaultColor(int id) const;
    bool getDefaultBool(int id) const;
    int getDefaultInt(int id) const;
    unsigned int getDefaultUInt(int id) const;
    long long getDefaultInt64(int id) const;
    QPen getDefaultPen(int id) const;
    QFont getDefaultFont(int id) const;
    QBrush getDefaultBrush(int id) const;
    char const * getDefaultString(int id) const;

    /// Takes every setting that has a name from `store`. One that the store does not hold is at its
    /// default afterwards, so this also takes back what was set and not saved. Null changes
    /// nothing.
    void load(IConfigStore * store);

    /// Writes every changed setting that has a name to `store`, in no particular order.
    void save(IConfigStore * store) const;

    /// Shows every setting with its present value, in no particular order.
    void visitAll(IConfigVisitor * visitor) const;

    /// Shows every changed setting, one without a name too, in no particular order.
    void visitChanged(IConfigVisitor * visitor) const;

private:
    std::unique_ptr<ConfigTable> m_table;
};

} // namespace zenu
