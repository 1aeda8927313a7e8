#pragma once

#include "zenu/ZenuExport.h"

class QBrush;
class QColor;
class QFont;
class QPen;

namespace zenu {

class IConfigStore;

/// Is shown settings by KConfig::visitAll and KConfig::visitChanged, each by the operation of its
/// type. A visitor overrides what it cares about; the rest does nothing.
class ZENU_EXPORT IConfigVisitor
{
public:
    /// A setting, its name ("" if it is never persisted) and its value. The pointers and references
    /// stay valid and the value stays the same until the walk ends, whatever the visitor does.
    virtual void visitColor(int /*id*/, char const * /*name*/, QColor const & /*value*/) {}
    virtual void visitBool(int /*id*/, char const * /*name*/, bool /*value*/) {}
    virtual void visitInt(int /*id*/, char const * /*name*/, int /*value*/) {}
    virtual void visitUInt(int /*id*/, char const * /*name*/, unsigned int /*value*/) {}
    virtual void visitInt64(int /*id*/, char const * /*name*/, long long const & /*value*/) {}
    virtual void visitPen(int /*id*/, char const * /*name*/, QPen const & /*value*/) {}
    virtual void visitFont(int /*id*/, char const * /*name*/, QFont const & /*value*/) {}
    virtual void visitBrush(int /*id*/, char const * /*name*/, QBrush const & /*value*/) {}
    virtual void visitString(int /*id*/, char const * /*name*/, char const * /*value*/) {}

    virtual ~IConfigVisitor() = default;
};

/// A cell that holds one value of one of the nine types. KConfig makes and owns its items;
/// applications have no need of them. Asked for another type it answers with that type's default
/// value, and a set of another type does nothing.
class ZENU_EXPORT IConfigItem
{
public:
    virtual ~IConfigItem() = default;

    /// A new item with the same value; the caller's.
    virtual IConfigItem * clone() const = 0;

    /// A new item of the same class with the value that `store` holds under `name`, the caller's;
    /// null if it holds none or is null. This item stays as it is.
    virtual IConfigItem * load(IConfigStore * store, char const * name) const = 0;

    /// Writes the value to `store` under `name`; a null store is allowed.
    virtual void save(IConfigStore * store, char const * name) const = 0;

    /// Shows the value to `visitor`; a null visitor is allowed.
    virtual void visit(int id, char const * name, IConfigVisitor * visitor) const = 0;

    /// The value; of an item of another type black, false, 0, a black solid pen of width 0, the
    /// application's font, a black solid brush and "". The pointer is into the item and dies with
    /// its next setString.
    virtual QColor getColor() const;
    virtual bool getBool() const;
    virtual int getInt() const;
    virtual unsigned int getUInt() const;
    virtual long long getInt64() const;
    virtual QPen getPen() const;
    virtual QFont getFont() const;
    virtual QBrush getBrush() const;
    virtual char const * getString() const;

    /// Changes the value; nothing happens to an item of another type. A null text is an empty one.
    virtual void setColor(QColor const & value);
    virtual void setBool(bool value);
    virtual void setInt(int value);
    virtual void setUInt(unsigned int value);
    virtual void setInt64(long long const & value);
    virtual void setPen(QPen const & value);
    virtual void setFont(QFont const & value);
    virtual void setBrush(QBrush const & value);
    virtual void setString(char const * value);
};

} // namespace zenu
