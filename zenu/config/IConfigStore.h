#pragma once

#include "zenu/ZenuExport.h"

class QBrush;
class QColor;
class QFont;
class QPen;
class QString;

namespace zenu {

/// Where KConfig keeps settings: a file, a registry, a server. The application implements it and
/// decides how the nine types are written. Names are never null or empty when KConfig calls.
class ZENU_EXPORT IConfigStore
{
public:
    /// True, and `value` filled, if the store holds a value of this type under `name`; false
    /// otherwise, and then `value` does not matter.
    virtual bool readColor(char const * name, QColor * value) = 0;
    virtual bool readBool(char const * name, bool * value) = 0;
    virtual bool readInt(char const * name, int * value) = 0;
    virtual bool readUInt(char const * name, unsigned int * value) = 0;
    virtual bool readInt64(char const * name, long long * value) = 0;
    virtual bool readPen(char const * name, QPen * value) = 0;
    virtual bool readFont(char const * name, QFont * value) = 0;
    virtual bool readBrush(char const * name, QBrush * value) = 0;

    /// The same for a text, of which KConfig keeps the Latin-1 form up to the first null character.
    virtual bool readString(char const * name, QString * value) = 0;

    /// Keeps `value` under `name`. A text is Latin-1 and never null. Nobody is told of a failure: a
    /// store that can fail remembers it.
    virtual void writeColor(char const * name, QColor const & value) = 0;
    virtual void writeBool(char const * name, bool value) = 0;
    virtual void writeInt(char const * name, int value) = 0;
    virtual void writeUInt(char const * name, unsigned int value) = 0;
    virtual void writeInt64(char const * name, long long const & value) = 0;
    virtual void writePen(char const * name, QPen const & value) = 0;
    virtual void writeFont(char const * name, QFont const & value) = 0;
    virtual void writeBrush(char const * name, QBrush const & value) = 0;
    virtual void writeString(char const * name, char const * value) = 0;

    virtual ~IConfigStore() = default;
};

} // namespace zenu
