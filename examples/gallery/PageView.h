#pragma once

#include "examples/gallery/Page.h"

#include <QWidget>

class QPlainTextEdit;

namespace gallery {

// A page with its title, and the code that makes it.
class PageView : public QWidget
{
public:
    explicit PageView(Page const & page, QWidget * parent = nullptr);

    // What the page made, below the title.
    QWidget & content() const { return *m_content; }
    QString code() const;

    // Brings up what the page brings up for pictures.
    void pose();

    // Makes the view as high and wide as page and code are, and leaves room for `part`, from its
    // left top corner, above the code.
    void showAll(QSize const & part);

private:
    QWidget * m_content;
    QWidget * m_stage; // holds the content
    QPlainTextEdit * m_code;
};

} // namespace gallery
