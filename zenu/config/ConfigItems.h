#pragma once

#include "zenu/config/IConfigItem.h"

#include <QtGui/QBrush>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QPen>

#include <string>

namespace zenu {

// The kinds of IConfigItem, one for each type, and one that holds nothing.

/// Holds a colour.
class ZENU_EXPORT KColorItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KColorItem(QColor const & value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    QColor getColor() const override;
    void setColor(QColor const & value) override;

private:
    QColor m_value;
};

/// Holds a bool.
class ZENU_EXPORT KBoolItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KBoolItem(bool value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    bool getBool() const override;
    void setBool(bool value) override;

private:
    bool m_value;
};

/// Holds an int.
class ZENU_EXPORT KIntItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KIntItem(int value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    int getInt() const override;
    void setInt(int value) override;

private:
    int m_value;
};

/// Holds an unsigned int.
class ZENU_EXPORT KUIntItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KUIntItem(unsigned int value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    unsigned int getUInt() const override;
    void setUInt(unsigned int value) override;

private:
    unsigned int m_value;
};

/// Holds a number of 64 bits.
class ZENU_EXPORT KInt64Item : public IConfigItem
{
public:
    /// An item with this value.
    explicit KInt64Item(long long const & value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    long long getInt64() const override;
    void setInt64(long long const & value) override;

private:
    long long m_value;
};

/// Holds a pen.
class ZENU_EXPORT KPenItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KPenItem(QPen const & value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    QPen getPen() const override;
    void setPen(QPen const & value) override;

private:
    QPen m_value;
};

/// Holds a font.
class ZENU_EXPORT KFontItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KFontItem(QFont const & value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    QFont getFont() const override;
    void setFont(QFont const & value) override;

private:
    QFont m_value;
};

/// Holds a brush.
class ZENU_EXPORT KBrushItem : public IConfigItem
{
public:
    /// An item with this value.
    explicit KBrushItem(QBrush const & value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    QBrush getBrush() const override;
    void setBrush(QBrush const & value) override;

private:
    QBrush m_value;
};

/// Holds a text, and owns it.
class ZENU_EXPORT KStringItem : public IConfigItem
{
public:
    /// An item with this text; null is the empty one.
    explicit KStringItem(char const * value);
    explicit KStringItem(std::string value);

    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
    char const * getString() const override;
    void setString(char const * value) override;

private:
    std::string m_value;
};

/// Holds nothing, and stands for a setting that does not exist: every get gives the type's default
/// value, and the rest does nothing.
class ZENU_EXPORT KDummyItem : public IConfigItem
{
public:
    IConfigItem * clone() const override;
    IConfigItem * load(IConfigStore * store, char const * name) const override;
    void save(IConfigStore * store, char const * name) const override;
    void visit(int id, char const * name, IConfigVisitor * visitor) const override;
};

} // namespace zenu
