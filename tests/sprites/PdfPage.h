#pragma once

#include <QtCore/QMap>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <functional>

namespace zenutest {

/// Shows the only page of a file that QPdfWriter wrote. Knows filled shapes, clips, pictures and
/// transparency; whatever else it meets stands in `unknown` afterwards.
class PdfPage
{
public:
    explicit PdfPage(QByteArray const & file)
    {
        readObjects(file);
        for (Object const & object : m_objects) {
            if (!object.text.contains("/Type /Page\n"))
                continue;
            m_resources = at(reference(object.text, "Resources")).text;
            m_commands = unpacked(at(reference(object.text, "Contents")), 1 << 20);
            QList<QByteArray> const box =
                between(object.text, "/MediaBox [", "]").simplified().split(' ');
            if (box.size() == 4)
                m_size = QSizeF(box[2].toDouble(), box[3].toDouble());
        }
    }

    /// One pixel a point, on white.
    QImage picture()
    {
        QImage image(m_size.toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setTransform(QTransform(1, 0, 0, -1, 0, m_size.height())); // y points upwards
        QMap<QByteArray, std::function<void()>> const commands = commandsOn(painter);
        for (QByteArray const & word : m_commands.simplified().split(' ')) {
            if (auto const command = commands.constFind(word); command != commands.constEnd()) {
                (*command)();
                m_operands.clear();
            } else if (isOperand(word)) {
                m_operands.push_back(word);
            } else {
                unknown.push_back(word);
            }
        }
        return image;
    }

    QList<QByteArray> unknown;

private:
    struct Object
    {
        QByteArray text;
        QByteArray stream;
    };

    static QByteArray between(QByteArray const & text, char const * before, char const * after)
    {
        qsizetype const start = text.indexOf(before);
        if (start < 0)
            return QByteArray();
        qsizetype const from = start + qsizetype(qstrlen(before));
        return text.mid(from, text.indexOf(after, from) - from);
    }

    static int reference(QByteArray const & text, QByteArray const & name)
    {
        return between(text, "/" + name + " ", " 0 R").toInt();
    }

    void readObjects(QByteArray const & file)
    {
        static QByteArray const begin = " 0 obj\n";
        for (qsizetype at = file.indexOf(begin); at >= 0; at = file.indexOf(begin, at + 1)) {
            qsizetype const lineStart = file.lastIndexOf('\n', at) + 1;
            QByteArray const body =
                file.mid(at + begin.size(), file.indexOf("endobj", at) - at - begin.size());
            qsizetype const stream = body.indexOf("stream\n");
            Object object{body, QByteArray()};
            if (stream >= 0)
                object = {body.left(stream), between(body, "stream\n", "\nendstream")};
            m_objects.insert(file.mid(lineStart, at - lineStart).toInt(), object);
        }
    }

    Object at(int number) const { return m_objects.value(number); }

    static QByteArray unpacked(Object const & object, int mostBytes)
    {
        QByteArray packed(4, '\0');
        for (int i = 0; i < 4; ++i)
            packed[i] = static_cast<char>(mostBytes >> (24 - 8 * i));
        return qUncompress(packed + object.stream);
    }

    static bool isOperand(QByteArray const & word)
    {
        bool number = false;
        word.toDouble(&number);
        return number || word.startsWith('/') || word.startsWith('[');
    }

    double number(qsizetype index) const { return m_operands.value(index).toDouble(); }
    QPointF point() const { return QPointF(number(0), number(1)); }

    void fill(QPainter & painter, Qt::FillRule rule)
    {
        m_path.setFillRule(rule);
        painter.fillPath(m_path, painter.brush());
        m_path = QPainterPath();
    }

    void clip(QPainter & painter, Qt::FillRule rule)
    {
        m_path.setFillRule(rule);
        painter.setClipPath(m_path, painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    }

    // Rows of whole bytes without a gap between them. In a mask a set bit is opaque.
    static QImage samples(QByteArray const & bytes, QSize size, QImage::Format format)
    {
        int const bits = format == QImage::Format_Mono     ? 1
                         : format == QImage::Format_RGB888 ? 24
                                                           : 8;
        int const line = (size.width() * bits + 7) / 8;
        if (bytes.size() < qsizetype(line) * size.height())
            return QImage();
        QImage image(reinterpret_cast<uchar const *>(bytes.constData()), size.width(),
                     size.height(), line, format);
        if (bits == 1)
            image.setColorTable({qRgb(0, 0, 0), qRgb(255, 255, 255)});
        return image.copy();
    }

    QImage imageOf(Object const & object)
    {
        QSize const size(between(object.text, "/Width ", "\n").toInt(),
                         between(object.text, "/Height ", "\n").toInt());
        QImage colors = object.text.contains("/DCTDecode")
                            ? QImage::fromData(object.stream, "JPEG")
                            : samples(unpacked(object, size.width() * size.height() * 3), size,
                                      QImage::Format_RGB888);
        if (colors.isNull()) {
            unknown.push_back(object.text);
            return colors;
        }
        colors.convertTo(QImage::Format_ARGB32);
        int const most = size.width() * size.height();
        if (int const mask = reference(object.text, "SMask"))
            colors.setAlphaChannel(
                samples(unpacked(at(mask), most), size, QImage::Format_Grayscale8));
        if (int const mask = reference(object.text, "Mask"))
            colors.setAlphaChannel(samples(unpacked(at(mask), most), size, QImage::Format_Mono)
                                       .convertToFormat(QImage::Format_Grayscale8));
        return colors;
    }

    // A picture fills the unit square, its first row on top.
    void drawImage(QPainter & painter)
    {
        QImage const image = imageOf(at(reference(m_resources, m_operands.value(0).mid(1))));
        painter.save();
        painter.setTransform(QTransform(1, 0, 0, -1, 0, 1), true);
        painter.drawImage(QRectF(0, 0, 1, 1), image);
        painter.restore();
    }

    void setState(QPainter & painter)
    {
        QByteArray const state = at(reference(m_resources, m_operands.value(0).mid(1))).text;
        painter.setOpacity(between(state, "/ca ", "\n").toDouble());
    }

    QMap<QByteArray, std::function<void()>> commandsOn(QPainter & painter)
    {
        auto const ignored = [] {};
        return {
            {"q", [&] { painter.save(); }},
            {"Q", [&] { painter.restore(); }},
            {"cm",
             [&] {
                 painter.setTransform(
                     QTransform(number(0), number(1), number(2), number(3), number(4), number(5)),
                     true);
             }},
            {"re", [this] { m_path.addRect(QRectF(number(0), number(1), number(2), number(3))); }},
            {"m", [this] { m_path.moveTo(point()); }},
            {"l", [this] { m_path.lineTo(point()); }},
            {"h", [this] { m_path.closeSubpath(); }},
            {"n", [this] { m_path = QPainterPath(); }},
            {"f", [&] { fill(painter, Qt::WindingFill); }},
            {"f*", [&] { fill(painter, Qt::OddEvenFill); }},
            {"W", [&] { clip(painter, Qt::WindingFill); }},
            {"W*", [&] { clip(painter, Qt::OddEvenFill); }},
            {"scn",
             [&] {
                 painter.setBrush(
                     QColor::fromRgbF(float(number(0)), float(number(1)), float(number(2))));
             }},
            {"gs", [&] { setState(painter); }},
            {"Do", [&] { drawImage(painter); }},
            {"cs", ignored}, // the colours are RGB; lines are not drawn
            {"CS", ignored},
            {"SCN", ignored},
            {"w", ignored},
            {"J", ignored},
            {"j", ignored},
            {"d", ignored},
        };
    }

    QMap<int, Object> m_objects;
    QByteArray m_resources;
    QByteArray m_commands;
    QSizeF m_size;
    QList<QByteArray> m_operands;
    QPainterPath m_path;
};

} // namespace zenutest
