#!/usr/bin/env python3
"""rooms_test.py: rooms.py finds each kind of include that runs against the order, and nothing else."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECKER = pathlib.Path(__file__).with_name("rooms.py")


class Rooms(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.src = pathlib.Path(folder.name) / "src"
        self.src.mkdir()

    def put(self, name, *lines):
        path = self.src / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("\n".join(lines) + "\n", encoding="utf-8")

    def check(self):
        """The exit status and what was said, with names from the source folder on."""
        ran = subprocess.run([sys.executable, CHECKER, self.src], capture_output=True, text=True, check=False)
        return ran.returncode, ran.stdout.replace(f"{self.src}/", "").splitlines(), ran.stderr

    def expect(self, *said):
        self.assertEqual(self.check(), (1, list(said), ""))

    def expect_good(self):
        self.assertEqual(self.check(), (0, ["every include runs down the house"], ""))

    def test_includes_that_run_down_are_good(self):
        self.put("store/report.cpp", '#include "store/report.h"', "#include <string>", '#include "ui/list_box.h"')
        self.put("shell/start.cpp", '#include "intake/data_set_load.h"', '#include "ui/desktop.h"')
        self.put("desktop/main.cpp", "#include <QApplication>", '#include "shell/start.h"')
        self.put("desktop/form_window.h", '#include "render/image_canvas.h"')
        self.put("render/image_canvas.h", "#include <QImage>", '#include "ui/canvas.h"', '#include "render/stamp.h"')
        self.put("replay/render.cpp", '#include "render/drawing.h"', '#include "plot/plot_window.h"')
        self.expect_good()

    def test_drawing_takes_of_the_program_only_the_headers_of_ui(self):
        self.put("render/image_canvas.h", "#include <QImage>", '#include "plot/paint.h"')
        self.put("render/drawing.cpp", '#include "store/failure.h"', '#include "shell/start.h"')
        self.expect(
            "render/drawing.cpp:1: render includes store/failure.h, and takes only headers of ui",
            "render/drawing.cpp:2: render includes shell/start.h, and takes only headers of ui",
            "render/image_canvas.h:2: render includes plot/paint.h, and takes only headers of ui",
        )

    def test_the_replay_knows_one_header_of_drawing(self):
        self.put("replay/main.cpp", '#include "render/image_canvas.h"')
        self.expect("replay/main.cpp:1: replay includes render/image_canvas.h, and knows only render/drawing.h of that room")

    def test_a_room_does_not_include_one_above_it(self):
        self.put("ui/control.h", "#pragma once", "", "#include <string>", '#include "store/val.h"')
        self.put("intake/scan_reader.cpp", "#  include <shell/start.h>")
        self.put("render/image_canvas.cpp", '#include "desktop/main_window_view.h"')
        self.expect(
            "intake/scan_reader.cpp:1: intake includes shell/start.h of a room above it",
            "render/image_canvas.cpp:1: render includes desktop/main_window_view.h of a room above it",
            "ui/control.h:4: ui includes store/val.h of a room above it",
        )

    def test_three_ways_lead_sideways(self):
        self.put("conditioning/jitter.cpp", '#include "output/scan_plots.h"')
        self.put("wide/wide_distribution.cpp", '#include "analysis/interpolation.h"')
        self.put("output/scan_tables.cpp", '#include "analysis/averages.h"')
        self.expect_good()

    def test_no_other_way_leads_sideways(self):
        self.put("analysis/g_of_s.cpp", '#include "wide/smooth.h"')
        self.put("output/scan_plots.cpp", '#include "conditioning/jitter.h"')
        self.put("replay/script.cpp", '#include "desktop/qt_desktop.h"')
        self.expect(
            "analysis/g_of_s.cpp:1: analysis includes wide/smooth.h of a room beside it",
            "output/scan_plots.cpp:1: output includes conditioning/jitter.h of a room beside it",
            "replay/script.cpp:1: replay includes desktop/qt_desktop.h of a room beside it",
        )

    def test_the_core_includes_no_header_of_the_toolkit(self):
        self.put("ui/form.cpp", "#include <QWidget>", '#include "QtGui/QImage"', "#include <qstring.h>")
        self.put("shell/splash.cpp", "#include <QtWidgets/QLabel>")
        self.expect(
            "shell/splash.cpp:1: shell is part of the core and includes the toolkit's QtWidgets/QLabel",
            "ui/form.cpp:1: ui is part of the core and includes the toolkit's QWidget",
            "ui/form.cpp:2: ui is part of the core and includes the toolkit's QtGui/QImage",
            "ui/form.cpp:3: ui is part of the core and includes the toolkit's qstring.h",
        )

    def test_a_header_is_not_named_by_a_relative_path(self):
        self.put("shell/start.cpp", '#include "../ui/form.h"', '#include "./start.h"', '#include "ui/../store/val.h"')
        self.expect(
            "shell/start.cpp:1: ../ui/form.h is named by a relative path",
            "shell/start.cpp:2: ./start.h is named by a relative path",
            "shell/start.cpp:3: ui/../store/val.h is named by a relative path",
        )

    def test_the_simulator_stands_alone(self):
        self.put("simulate/main.cpp", '#include "simulate/lamm_solver.h"', '#include "store/val.h"')
        self.put("intake/scan_reader.cpp", '#include "simulate/scan_writer.h"')
        self.expect(
            "intake/scan_reader.cpp:1: intake includes simulate/scan_writer.h, and simulate stands alone",
            "simulate/main.cpp:2: simulate includes store/val.h, and simulate stands alone",
        )

    def test_code_outside_the_rooms_is_told(self):
        self.put("helpers/text.h", "#pragma once")
        self.put("loose.cpp", "#include <string>")
        self.expect(
            "helpers/text.h:1: it stands in no room that has a floor",
            "loose.cpp:1: it stands in no room that has a floor",
        )

    def test_a_missing_folder_is_no_good_house(self):
        self.src.rmdir()
        status, _, told = self.check()
        self.assertEqual(status, 1)
        self.assertIn("there is no folder", told)


if __name__ == "__main__":
    unittest.main()
