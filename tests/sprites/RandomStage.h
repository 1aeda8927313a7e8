#pragma once

#include "tests/sprites/Reference.h"

#include <QtWidgets/QScrollBar>

#include <array>
#include <memory>

namespace zenutest {

/// One step of a random sequence: what happens, and four numbers that say how. Any numbers will do,
/// so steps can be left out of a sequence.
struct Step
{
    int kind;
    std::array<int, 4> n;
};

/// A host in a scroll area, partly covered, with sprites over it, and the reference beside it.
class RandomStage
{
public:
    static constexpr int kinds = 21;

    explicit RandomStage(int spriteCount);
    /// Does the step and returns what is wrong on the screen after it.
    QString run(Step const & step);
    static QString text(Step const & step);

private:
    void addSprite(std::array<int, 4> const & n);
    void changeSprite(size_t index, Step const & step);
    void changeLayer(Step const & step);
    QString changeHost(Step const & step);
    QString paintHost(Step const & step);
    QString layOut(Step const & step);
    QString commit();
    QString check(char const * when) const;
    QImage around() const;
    QRegion clip() const;
    static QRect rectOf(std::array<int, 4> const & n);
    static QColor colorOf(int n);

    std::unique_ptr<QWidget> m_window;
    QScrollArea * m_area;
    SpriteHost * m_host;
    QWidget * m_cover;
    QWidget * m_child;
    std::unique_ptr<zenu::KSpriteLayer> m_layer;
    std::vector<std::unique_ptr<TestSprite>> m_sprites; // as in the reference
    std::vector<std::unique_ptr<TestSprite>> m_removed;
    Reference m_reference;
    int m_nextPriority = 0;
};

} // namespace zenutest
