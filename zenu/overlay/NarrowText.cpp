#include "zenu/overlay/NarrowText.h"

#include <QByteArray>

#include <array>
#include <cstddef>

namespace zenu {

char const * qstring2chars(QString const & text)
{
    // A QString holds no Latin-1 form of itself that could be handed out, so the last texts live
    // here.
    static std::array<QByteArray, keptNarrowTexts> kept;
    static std::size_t next = 0;

    if (text.isEmpty()) {
        return "";
    }
    QByteArray & slot = kept[next];
    next = (next + 1) % kept.size();
    slot = text.toLatin1();
    return slot.constData();
}

QString chars2qstring(char const * text)
{
    return QString::fromLatin1(text);
}

} // namespace zenu
