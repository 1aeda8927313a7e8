#include "tests/header/HeaderFixtures.h"
#include "tests/support/TestMain.h"

#include <QFontMetrics>
#include <QPixmap>

using namespace zenu;
using zenutest::dump;
using zenutest::Recorder;
using zenutest::ShownHeader;
using zenutest::TestHeader;

class tst_KHeader : public zenutest::Test
{
    Q_OBJECT
private Q_SLOTS:
    void constructor_state_isEmptyWithAllOptionsOff();
    void insertItem_middle_keepsOrderArrayAndOrders();
    void insertItem_badIndex_meansTheEnd();
    void deleteItem_any_fixesOrderArray();
    void deleteItem_badIndex_isRefused();
    void deleteAllItems_items_emptiesBoth();
    void insertionAndDeletion_repaintTheHeader();
    void copiedItem_keepsEveryFieldAndGetsAnOrderOfItsOwn();
    void getSortPixmap_isARisingAndAFallingTriangle();
    void bareNotification_refusesNothing();
    void setMinWH_aboveWidth_leavesRepaintToTheCaller();
    void getOrderArray_anyCount_copiesWhatExists();
    void setters_badIndex_areIgnored();
    void setters_value_isStored();
    void setters_sameValue_repaintNothing();
    void setters_newValue_repaintTheItem();
    void setSortBitmap_values_setOneArrowBit();
    void setText_sameContent_comparesByContent();
    void setWH_belowMinimum_givesMinimum();
    void setWH_newWidth_leavesRepaintToTheCaller();
    void setMinWH_aboveWidth_raisesIt();
    void setOrder_value_leavesOrderArray();
    void storingSetters_newValue_repaintNothing();
    void getItemRect_badIndex_isInvalid();
    void getLayout_shown_isOneAndAHalfFontHeights();
    void getLayout_hidden_hasNoHeight();
    void setHidden_on_hidesWidget();
    void options_each_isStoredAlone();
    void blockControl_value_returnsOldOne();
    void setTextColor_change_returnsOldColourAndRepaintsOnce();
    void getTextColor_neverSet_followsPalette();
    void setPixmapSet_value_returnsOldSetAndRepaints();
    void setFont_withAndWithoutRepaint_isStoredExactly();
    void setFont_ofTheWidget_isFollowed();
    void unusedInterface_calls_doNothing();
};

namespace {

bool settle(TestHeader & header)
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    header.painted = QRegion();
    return true;
}

QRegion paintedNow(TestHeader & header)
{
    QCoreApplication::processEvents();
    return header.painted;
}

} // namespace

void tst_KHeader::constructor_state_isEmptyWithAllOptionsOff()
{
    TestHeader header;
    QCOMPARE(header.getItemsCount(), 0);
    QCOMPARE(header.getItemOver(), -1);
    QCOMPARE(header.getNotification(), nullptr);
    QCOMPARE(header.getPixmapSet(), nullptr);
    QVERIFY(header.hasMouseTracking());
    QVERIFY(header.objectName().isEmpty());
    QCOMPARE(header.getSortPixmap().size(), QSize(16, 8));
    QVERIFY(header.getSortHotPixmap().isNull());
    QCOMPARE(TestHeader::m_hcrNoDragOver, nullptr);
    QCOMPARE(TestHeader::m_hcrVertSplit, nullptr);
    QVERIFY(!header.isHidden() && !header.isVert() && !header.isProportional());
    QVERIFY(!header.isStickLastToEdge() && !header.isDragWhenResized() && !header.isButtons());
    QVERIFY(!header.isUsePlusSettings() && !header.isHotTrack() && !header.isDragDrop());
    QVERIFY(!header.isFlatView() && !header.isToolTip() && !header.isFlat3D());
    QVERIFY(!header.blockControl(false));
}

void tst_KHeader::insertItem_middle_keepsOrderArrayAndOrders()
{
    TestHeader header;
    header.addItems({10, 20, 30});
    QVERIFY(header.insertItem(1, KHeaderItem("new", nullptr, 0, 0, 99, 0)));
    QCOMPARE(header.widths(), QStringLiteral("10 99 20 30"));
    QCOMPARE(header.order(), QStringLiteral("0 1 2 3"));
    QCOMPARE(header.getItem(1)->getOrder(), 1);
    QCOMPARE(header.getItem(3)->getOrder(), 3);
}

void tst_KHeader::insertItem_badIndex_meansTheEnd()
{
    TestHeader header;
    header.addItems({10, 20});
    QVERIFY(header.insertItem(50, KHeaderItem("a", nullptr, 0, 0, 1, 0)));
    QVERIFY(header.insertItem(-9, KHeaderItem("b", nullptr, 0, 0, 2, 0)));
    QCOMPARE(header.widths(), QStringLiteral("10 20 1 2"));
}

void tst_KHeader::deleteItem_any_fixesOrderArray()
{
    TestHeader header;
    header.addItems({10, 20, 30});
    QVERIFY(header.deleteItem(1));
    QCOMPARE(header.widths(), QStringLiteral("10 30"));
    QCOMPARE(header.order(), QStringLiteral("0 1"));
    QCOMPARE(header.getItem(1)->getOrder(), 1);
}

void tst_KHeader::deleteItem_badIndex_isRefused()
{
    TestHeader header;
    QVERIFY(!header.deleteItem(0));
    header.addItems({10});
    QVERIFY(!header.deleteItem(-1));
    QVERIFY(!header.deleteItem(1));
    QCOMPARE(header.getItem(1), nullptr);
    QCOMPARE(header.getItem(-1), nullptr);
    QVERIFY(header.checkItemInternal(0));
    QVERIFY(!header.checkItemInternal(1));
}

void tst_KHeader::deleteAllItems_items_emptiesBoth()
{
    TestHeader header;
    header.addItems({10, 20});
    header.deleteAllItems();
    QCOMPARE(header.getItemsCount(), 0);
    QCOMPARE(header.order(), QString());
    header.addItems({5});
    QCOMPARE(header.order(), QStringLiteral("0"));
}

void tst_KHeader::getOrderArray_anyCount_copiesWhatExists()
{
    TestHeader header;
    header.addItems({10, 20, 30});
    int order[4] = {-7, -7, -7, -7};
    QVERIFY(header.getOrderArray(2, order));
    QCOMPARE(order[1], 1);
    QCOMPARE(order[2], -7);
    QVERIFY(header.getOrderArray(4, order));
    QCOMPARE(order[2], 2);
    QCOMPARE(order[3], -7);
    QVERIFY(header.getOrderArray(-1, order));
    QVERIFY(header.getOrderArray(0, nullptr));
    QVERIFY(!header.getOrderArray(1, nullptr));
}

void tst_KHeader::setters_badIndex_areIgnored()
{
    TestHeader header;
    header.addItems({10});
    for (int const bad : {-1, 1, 1000}) {
        header.setWH(bad, 5);
        header.setMinWH(bad, 5);
        header.setText(bad, "x");
        header.setFormat(bad, 0);
        header.setSortBitmap(bad, HeaderSortFirst);
        header.setLParam(bad, 1);
        header.setImage(bad, 1);
        header.setPixmap(bad, nullptr);
        header.setOrder(bad, 1);
        header.setSizePercent(bad, 1);
        header.setJustify(bad, HeaderJustifyRight);
        header.setToolTipText(bad, "x");
        header.invalidateItem(bad);
        header.prepareTrack(bad);
        header.doTrack(bad, 5);
    }
    QCOMPARE(header.widths(), QStringLiteral("10"));
    QCOMPARE(header.getItem(0)->getText(), std::string("T0"));
}

void tst_KHeader::setters_value_isStored()
{
    TestHeader header;
    header.addItems({10});
    QPixmap pixmap;
    header.setWH(0, 44);
    header.setMinWH(0, 4);
    header.setText(0, std::string("name"));
    header.setFormat(0, 0x6010);
    header.setLParam(0, 0xfffffffeu);
    header.setImage(0, 3);
    header.setPixmap(0, &pixmap);
    header.setOrder(0, 5);
    header.setSizePercent(0, 0.25);
    header.setJustify(0, HeaderJustifyCenter);
    header.setToolTipText(0, "tip");
    KHeaderItem const & item = *header.getItem(0);
    QCOMPARE(item.getWH(), 44);
    QCOMPARE(item.getMinWH(), 4);
    QCOMPARE(item.getText(), std::string("name"));
    QCOMPARE(item.getFmt(), 0x6010);
    QCOMPARE(item.getLParam(), 0xfffffffeu);
    QCOMPARE(item.getImage(), 3);
    QCOMPARE(item.getPixmap(), &pixmap);
    QCOMPARE(item.getOrder(), 5);
    QCOMPARE(item.getSizePercent(), 0.25);
    QCOMPARE(int(item.getJustify()), 4);
    QCOMPARE(item.getToolTipText(), std::string("tip"));
    header.setText(0, static_cast<char const *>(nullptr));
    QCOMPARE(item.getText(), std::string());
}

void tst_KHeader::setters_sameValue_repaintNothing()
{
    ShownHeader shown({50, 60});
    QVERIFY(shown.show());
    settle(*shown.header);
    KHeaderItem const item = *shown.header->getItem(0);
    shown.header->setText(0, item.getText());
    shown.header->setFormat(0, item.getFmt());
    shown.header->setSortBitmap(0, HeaderSortNone);
    shown.header->setLParam(0, item.getLParam());
    shown.header->setImage(0, item.getImage());
    shown.header->setPixmap(0, item.getPixmap());
    shown.header->setOrder(0, item.getOrder());
    shown.header->setMinWH(0, item.getMinWH());
    shown.header->setWH(0, item.getWH());
    QVERIFY(paintedNow(*shown.header).isEmpty());
}

void tst_KHeader::setters_newValue_repaintTheItem()
{
    ShownHeader shown({50, 60});
    QVERIFY(shown.show());
    QPixmap pixmap(4, 4);
    std::vector<std::function<void(TestHeader &)>> const changes = {
        [](TestHeader & header) { header.setText(1, "other"); },
        [](TestHeader & header) { header.setFormat(1, HeaderFormatText | HeaderFormatFixed); },
        [](TestHeader & header) { header.setSortBitmap(1, HeaderSortSecond); },
        [](TestHeader & header) { header.setLParam(1, 8); },
        [](TestHeader & header) { header.setImage(1, 8); },
        [&](TestHeader & header) { header.setPixmap(1, &pixmap); },
        [](TestHeader & header) { header.setMinWH(1, 8); }};
    for (auto const & change : changes) {
        settle(*shown.header);
        change(*shown.header);
        QCOMPARE(paintedNow(*shown.header).boundingRect(), QRect(50, 0, 61, 20));
    }
}

void tst_KHeader::setSortBitmap_values_setOneArrowBit()
{
    TestHeader header;
    header.addItems({50});
    header.setSortBitmap(0, HeaderSortFirst);
    QCOMPARE(header.getItem(0)->getFmt(), 0x4020);
    header.setSortBitmap(0, HeaderSortSecond);
    QCOMPARE(header.getItem(0)->getFmt(), 0x4040);
    header.setSortBitmap(0, HeaderSortNone);
    QCOMPARE(header.getItem(0)->getFmt(), 0x4000);
}

void tst_KHeader::setText_sameContent_comparesByContent()
{
    ShownHeader shown({50});
    QVERIFY(shown.show());
    settle(*shown.header);
    char text[] = "T0";
    shown.header->setText(0, text);
    QVERIFY(paintedNow(*shown.header).isEmpty());
}

void tst_KHeader::setWH_belowMinimum_givesMinimum()
{
    TestHeader header;
    header.addItems({50}, HeaderFormatText, 20);
    header.setWH(0, 5);
    QCOMPARE(header.getItem(0)->getWH(), 20);
    header.setWH(0, 21);
    QCOMPARE(header.getItem(0)->getWH(), 21);
}

void tst_KHeader::setWH_newWidth_leavesRepaintToTheCaller()
{
    ShownHeader shown({50, 60});
    QVERIFY(shown.show());
    settle(*shown.header);
    shown.header->setWH(0, 80);
    QVERIFY(paintedNow(*shown.header).isEmpty());
}

void tst_KHeader::setMinWH_aboveWidth_raisesIt()
{
    TestHeader header;
    header.addItems({50});
    header.setMinWH(0, 70);
    QCOMPARE(header.getItem(0)->getWH(), 70);
    header.setMinWH(0, 10);
    QCOMPARE(header.getItem(0)->getWH(), 70);
}

void tst_KHeader::setOrder_value_leavesOrderArray()
{
    TestHeader header;
    header.setGeometry(0, 0, 400, 20);
    header.addItems({50, 60, 70});
    header.setOrder(2, 0);
    QCOMPARE(header.getItemRect(2).left(), 0);
    QCOMPARE(header.order(), QStringLiteral("0 1 2"));
    header.deleteItem(0);
    QCOMPARE(header.getItem(1)->getOrder(), 1);
    header.setOrder(0, 1000);
    QCOMPARE(header.getItemRect(0).left(), 130);
    header.setOrder(0, -1000);
    QCOMPARE(header.getItemRect(0).left(), 0);
    QCOMPARE(dump(header.hitTest(QPoint(30, 5))), QStringLiteral("item=0"));
}

void tst_KHeader::storingSetters_newValue_repaintNothing()
{
    ShownHeader shown({50, 60});
    QVERIFY(shown.show());
    settle(*shown.header);
    shown.header->setSizePercent(0, 0.5);
    shown.header->setJustify(0, HeaderJustifyRight);
    shown.header->setToolTipText(0, "tip");
    QVERIFY(paintedNow(*shown.header).isEmpty());
}

void tst_KHeader::getItemRect_badIndex_isInvalid()
{
    TestHeader header;
    QVERIFY(!header.getItemRect(0).isValid());
    QVERIFY(!header.getItemRect(-1).isValid());
}

void tst_KHeader::getLayout_shown_isOneAndAHalfFontHeights()
{
    TestHeader header;
    QFont font = header.font();
    font.setPixelSize(21);
    header.setFont(font, false);
    int const fontHeight = QFontMetrics(font, &header).height();
    QRect const layout = header.getLayout(QRect(3, 4, 100, 1));
    QCOMPARE(layout.topLeft(), QPoint(3, 4));
    QCOMPARE(layout.right(), 102);
    QCOMPARE(layout.bottom(), 4 + fontHeight * 3 / 2);
}

void tst_KHeader::getLayout_hidden_hasNoHeight()
{
    TestHeader header;
    header.setHidden(true);
    QCOMPARE(header.getLayout(QRect(0, 7, 100, 50)).bottom(), 7);
}

void tst_KHeader::setHidden_on_hidesWidget()
{
    ShownHeader shown({50});
    QVERIFY(shown.show());
    shown.header->setHidden(true);
    QVERIFY(shown.header->isHidden());
    QVERIFY(!shown.header->isVisible());
    shown.header->setHidden(false);
    QVERIFY(!shown.header->isHidden());
    QVERIFY(shown.header->isVisible());
}

void tst_KHeader::options_each_isStoredAlone()
{
    using Getter = bool (KHeader::*)() const;
    using Setter = void (KHeader::*)(bool);
    std::vector<std::pair<Getter, Setter>> const options = {
        {&KHeader::isHidden, &KHeader::setHidden},
        {&KHeader::isVert, &KHeader::setVert},
        {&KHeader::isProportional, &KHeader::setProportional},
        {&KHeader::isStickLastToEdge, &KHeader::setStickLastToEdge},
        {&KHeader::isDragWhenResized, &KHeader::setDragWhenResized},
        {&KHeader::isButtons, &KHeader::setButtons},
        {&KHeader::isUsePlusSettings, &KHeader::setUsePlusSettings},
        {&KHeader::isHotTrack, &KHeader::setHotTrack},
        {&KHeader::isDragDrop, &KHeader::setDragDrop},
        {&KHeader::isFlatView, &KHeader::setFlatView},
        {&KHeader::isToolTip, static_cast<Setter>(&KHeader::setToolTip)},
        {&KHeader::isFlat3D, &KHeader::setFlat3D}};
    ShownHeader shown({50});
    QVERIFY(shown.show());
    for (auto const & [get, set] : options) {
        settle(*shown.header);
        (shown.header->*set)(true);
        int on = 0;
        for (auto const & other : options) {
            on += (shown.header->*other.first)() ? 1 : 0;
        }
        QCOMPARE(on, 1);
        QVERIFY((shown.header->*get)());
        QVERIFY(paintedNow(*shown.header).isEmpty());
        (shown.header->*set)(false);
    }
}

void tst_KHeader::blockControl_value_returnsOldOne()
{
    TestHeader header;
    QVERIFY(!header.blockControl(true));
    QVERIFY(header.blockControl(true));
    QVERIFY(header.blockControl(false));
    QVERIFY(!header.blockControl(false));
}

void tst_KHeader::setTextColor_change_returnsOldColourAndRepaintsOnce()
{
    ShownHeader shown({50});
    QVERIFY(shown.show());
    QColor const old = QApplication::palette().color(QPalette::Active, QPalette::ButtonText);
    settle(*shown.header);
    QCOMPARE(shown.header->setTextColor(Qt::red), old);
    QCOMPARE(paintedNow(*shown.header).boundingRect(), shown.header->rect());
    settle(*shown.header);
    QCOMPARE(shown.header->setTextColor(Qt::red), QColor(Qt::red));
    QCOMPARE(shown.header->getTextColor(), QColor(Qt::red));
    QVERIFY(paintedNow(*shown.header).isEmpty());
}

void tst_KHeader::getTextColor_neverSet_followsPalette()
{
    TestHeader header;
    QPalette const before = QApplication::palette();
    QPalette other = before;
    other.setColor(QPalette::ButtonText, Qt::green);
    QApplication::setPalette(other);
    QColor const now = header.getTextColor();
    QApplication::setPalette(before);
    QCOMPARE(now, QColor(Qt::green));
}

void tst_KHeader::setPixmapSet_value_returnsOldSetAndRepaints()
{
    ShownHeader shown({50});
    QVERIFY(shown.show());
    settle(*shown.header);
    // Only the pointer counts as long as no item has an image.
    auto * const set = reinterpret_cast<KPixmapSet *>(&shown);
    QCOMPARE(shown.header->setPixmapSet(set), nullptr);
    QCOMPARE(paintedNow(*shown.header).boundingRect(), shown.header->rect());
    QCOMPARE(shown.header->getPixmapSet(), set);
    QCOMPARE(shown.header->setPixmapSet(nullptr), set);
}

void tst_KHeader::setFont_withAndWithoutRepaint_isStoredExactly()
{
    TestHeader header;
    QFont font;
    font.setPointSize(31);
    header.setFont(font, true);
    QCOMPARE(header.getfont(), font);
    font.setBold(true);
    header.setFont(font, false);
    QCOMPARE(header.getfont(), font);
}

void tst_KHeader::setFont_ofTheWidget_isFollowed()
{
    QWidget parent;
    TestHeader header(&parent);
    QFont font = parent.font();
    font.setPixelSize(29);
    parent.setFont(font);
    QCOMPARE(header.getfont().pixelSize(), 29);
    font.setPixelSize(17);
    header.setFont(font);
    QCOMPARE(header.getfont().pixelSize(), 17);
}

void tst_KHeader::unusedInterface_calls_doNothing()
{
    TestHeader header;
    QCOMPARE(header.setHotDivider(true, 5), 0);
    header.drawDraggedButton(true);
    header.hideTooltip();
    header.trackButton();
    int item = 9;
    QRect rect;
    QVERIFY(!header.canStartDragDrop(&rect, &item));
    QCOMPARE(item, 0);
    QVERIFY(!header.canStartDragDrop(nullptr, nullptr));
    QVERIFY(!header.acceptDrops());
}

void tst_KHeader::insertionAndDeletion_repaintTheHeader()
{
    ShownHeader shown({50, 60, 70});
    QVERIFY(shown.show());
    std::vector<std::function<void(TestHeader &)>> const changes = {
        [](TestHeader & header) { header.insertItem(0, KHeaderItem()); },
        [](TestHeader & header) { header.deleteItem(1); },
        [](TestHeader & header) { header.deleteAllItems(); }};
    for (auto const & change : changes) {
        settle(*shown.header);
        change(*shown.header);
        QCOMPARE(paintedNow(*shown.header).boundingRect(), shown.header->rect());
    }
}

void tst_KHeader::copiedItem_keepsEveryFieldAndGetsAnOrderOfItsOwn()
{
    TestHeader header;
    header.addItems({10, 20});
    QPixmap pixmap;
    header.setText(1, "A rather long title that is on the heap");
    header.setToolTipText(1, "A rather long tip that is on the heap");
    header.setMinWH(1, 4);
    header.setFormat(1, 0x6020);
    header.setLParam(1, 77);
    header.setImage(1, 3);
    header.setPixmap(1, &pixmap);
    header.setJustify(1, HeaderJustifyCenter);
    header.prepareTrack(0);
    header.setSizePercent(1, 0.125);
    KHeaderItem const copy(*header.getItem(1));
    KHeaderItem assigned;
    assigned = copy;
    QCOMPARE(assigned.getOrder(), 1);
    QCOMPARE(assigned.getSizePercent(), 0.125);
    QCOMPARE(assigned.getTrackPercent(), 20.0 / 30.0);
    TestHeader other;
    other.insertItem(0, assigned);
    for (KHeaderItem const * item : {&copy, &std::as_const(assigned), other.getItem(0)}) {
        QCOMPARE(item->getText(), std::string("A rather long title that is on the heap"));
        QCOMPARE(item->getToolTipText(), std::string("A rather long tip that is on the heap"));
        QCOMPARE(item->getWH(), 20);
        QCOMPARE(item->getMinWH(), 4);
        QCOMPARE(item->getFmt(), 0x6020);
        QCOMPARE(item->getLParam(), 77u);
        QCOMPARE(item->getImage(), 3);
        QCOMPARE(item->getPixmap(), &pixmap);
        QCOMPARE(int(item->getJustify()), 4);
        QVERIFY(!item->isValid());
    }
    QCOMPARE(other.getItem(0)->getOrder(), 0);
}

void tst_KHeader::getSortPixmap_isARisingAndAFallingTriangle()
{
    char const * const rows[] = {"...#a...########", "..##aa..##....aa", "..#..a...#....a.",
                                 ".##..aa..##..aa.", ".#....a...#..a..", "##....aa..##aa..",
                                 "#aaaaaaa...#a...", "................"};
    TestHeader header;
    QImage const image =
        header.getSortPixmap().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 16; ++x) {
            char const letter = rows[y][x];
            QRgb const color = letter == '#' ? 0xff808080 : letter == 'a' ? 0xffffffff : 0;
            QCOMPARE(image.pixel(x, y), color);
        }
    }
}

void tst_KHeader::bareNotification_refusesNothing()
{
    IHeaderNotification bare;
    int wh = 5;
    QVERIFY(!bare.onBeginTrack(1, &wh));
    QVERIFY(!bare.onTrack(1, &wh));
    QVERIFY(!bare.onEndTrack(1, nullptr));
    QCOMPARE(wh, 5);
    bare.onLeftButtonDown();
    bare.onRightButtonDown();
    bare.onDoubleClick();
    bare.onItemClick(1);
    bare.onItemRightClick(1);
    bare.onItemDoubleClick(1);
    bare.onDividerDoubleClick(1);
    bare.onFocusIn();
    bare.onFocusOut();
    bare.onDrawItem(nullptr, 1, nullptr, false, 0);
}

void tst_KHeader::setMinWH_aboveWidth_leavesRepaintToTheCaller()
{
    ShownHeader shown({50, 60});
    QVERIFY(shown.show());
    settle(*shown.header);
    shown.header->setMinWH(0, 80);
    QVERIFY(paintedNow(*shown.header).isEmpty());
}

ZENU_TEST(tst_KHeader)
#include "tst_KHeader.moc"
