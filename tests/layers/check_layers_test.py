"""scripts/check-layers on small trees: what is allowed passes, each broken rule is found."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parent.parent.parent / "scripts/check-layers"


class CheckLayers(unittest.TestCase):
    def complaints(self, files):
        """Lays out `files` (path below zenu/ to its include lines) and runs the script on them."""
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for path, text in files.items():
                file = root / "zenu" / path if not path.startswith("examples/") else root / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text("#pragma once\n" + text, encoding="utf-8")
            public = sorted(f"zenu/{path}" for path in files
                            if path.endswith(".h") and path.count("/") < 2 and path != "zenu.h"
                            and not path.startswith("examples/"))
            (root / "zenu").mkdir(exist_ok=True)
            if "zenu.h" not in files:
                lines = "".join(f'#include "{path}"\n' for path in public)
                (root / "zenu/zenu.h").write_text(
                    "#pragma once\n\n// Every public header of the library.\n\n" + lines,
                    encoding="utf-8")
            done = subprocess.run([sys.executable, SCRIPT, root], capture_output=True, text=True,
                                  check=False)
            self.assertEqual(done.returncode, 1 if done.stdout else 0, done.stderr)
            return done.stdout

    def include(self, includer, included):
        return self.complaints({included: "", includer: f'#include "zenu/{included}"\n'})

    def test_down_the_tiers_passes(self):
        self.assertEqual(self.include("header/KHeader.h", "scroll/KScrolledWidget.h"), "")
        self.assertEqual(self.include("grid/KGridCtrl.cpp", "grid/frame/KGridCtrlPrivate.h"), "")
        self.assertEqual(self.include("grid/rows/IGCRow.h", "grid/GridTypes.h"), "")
        self.assertEqual(self.include("time/KTimeEdit.h", "widgets/KValueButton.h"), "")
        self.assertEqual(self.include("header/inner/X.h", "overlay/surface/WidgetSurface.h"), "")

    def test_up_the_tiers_is_found_with_file_and_line(self):
        found = self.include("scroll/KScrolledWidget.h", "grid/KGridCtrl.h")
        self.assertIn("zenu/scroll/KScrolledWidget.h:2: zenu/grid/KGridCtrl.h", found)

    def test_sideways_is_found(self):
        self.assertIn("same tier", self.include("events/KToolTip.h", "scroll/KScrolledWidget.h"))
        self.assertIn("same tier", self.include("overlay/KPainter.h", "widgets/KPixmapSet.h"))

    def test_private_header_of_another_folder_is_found(self):
        self.assertIn("private", self.include("grid/frame/Frame.cpp", "header/inner/Layout.h"))

    def test_private_header_in_public_header_is_found(self):
        self.assertIn("private", self.include("header/KHeader.h", "header/inner/Layout.h"))
        self.assertEqual(self.include("header/KHeader.cpp", "header/inner/Layout.h"), "")

    def test_grid_parts_go_down_alone(self):
        self.assertIn("'rows'", self.include("grid/rows/IGCRow.h", "grid/order/CVisibleRows.h"))
        self.assertIn("'order'", self.include("grid/order/CVisibleRows.h", "grid/handles/L.h"))
        self.assertIn("'face.h'", self.include("grid/KGridCtrl.h", "header/KHeader.h"))
        self.assertIn("alone", self.include("grid/painting/X.cpp", "grid/frame/KGridCtrlPrivate.h"))

    def test_grid_does_without_time_config_and_command(self):
        self.assertIn("not for the grid", self.include("grid/frame/X.cpp", "config/KConfig.h"))

    def test_toolkit_in_tier_0_is_found(self):
        self.assertIn("tier 0", self.complaints({"util/Trace.h": "#include <QString>\n"}))

    def test_backing_store_has_one_place(self):
        text = "#include <QBackingStore>\n"
        self.assertIn("overlay/surface", self.complaints({"header/inner/X.cpp": text}))
        self.assertEqual(self.complaints({"overlay/surface/X.cpp": text}), "")

    def test_file_without_a_place_is_found(self):
        self.assertIn("no tier", self.complaints({"elsewhere/X.h": ""}))
        self.assertIn("no place", self.complaints({"grid/elsewhere/X.h": ""}))

    def test_umbrella_that_lacks_a_header_is_found(self):
        found = self.complaints({"util/Trace.h": "", "zenu.h": ""})
        self.assertIn("missing: zenu/util/Trace.h", found)

    def test_example_with_private_header_is_found(self):
        found = self.complaints({"examples/a/main.cpp": "#include <zenu/grid/rows/IGCRow.h>\n"})
        self.assertIn("examples/a/main.cpp:2", found)


if __name__ == "__main__":
    unittest.main()
