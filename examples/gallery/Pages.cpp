#include "examples/gallery/Page.h"

namespace gallery {

// Each in the source of its name in pages/.
Page actionsPage();
Page caretPage();
Page clockPage();
Page colorButtonPage();
Page colorPopupPage();
Page commandHandlersPage();
Page configItemsPage();
Page configPage();
Page cursorsPage();
Page dataTipPage();
Page dragStreamPage();
Page eventMonitorPage();
Page fileDialogPage();
Page filesPage();
Page flashButtonPage();
Page frequencyPage();
Page geometryPage();
Page gridKindsPage();
Page gridNotificationsPage();
Page gridPage();
Page headerNotificationsPage();
Page headerPage();
Page inPlaceComboPage();
Page inPlaceEditorPage();
Page mainDialogPage();
Page narrowTextPage();
Page pageSelectorPage();
Page painterPage();
Page pixmapSetPage();
Page popupMenuPage();
Page quickHeapPage();
Page scrolledWidgetPage();
Page slimRowsPage();
Page slotForwarderPage();
Page spinBoxWrapperPage();
Page spritesPage();
Page stringsPage();
Page timeBoxPage();
Page timeValuePage();
Page toolDialogPage();
Page toolTipPage();
Page tracePage();
Page valueButtonPage();

std::vector<PageGroup> const & pageGroups()
{
    static std::vector<PageGroup> const groups = {
        {"Grids", {gridPage(), gridKindsPage(), slimRowsPage(), gridNotificationsPage()}},
        {"Headers and editors",
         {headerPage(), headerNotificationsPage(), scrolledWidgetPage(), inPlaceEditorPage(),
          inPlaceComboPage()}},
        {"Colours", {colorButtonPage(), colorPopupPage(), valueButtonPage()}},
        {"Dialogs and menus",
         {toolDialogPage(), flashButtonPage(), mainDialogPage(), fileDialogPage(), popupMenuPage(),
          pageSelectorPage()}},
        {"Times",
         {timeBoxPage(), spinBoxWrapperPage(), clockPage(), timeValuePage(), frequencyPage()}},
        {"Drawing",
         {painterPage(), pixmapSetPage(), spritesPage(), caretPage(), dataTipPage(),
          geometryPage()}},
        {"Events",
         {eventMonitorPage(), toolTipPage(), cursorsPage(), dragStreamPage(), slotForwarderPage()}},
        {"Commands and settings",
         {actionsPage(), commandHandlersPage(), configPage(), configItemsPage()}},
        {"Helpers", {stringsPage(), narrowTextPage(), filesPage(), quickHeapPage(), tracePage()}},
    };
    return groups;
}

} // namespace gallery
