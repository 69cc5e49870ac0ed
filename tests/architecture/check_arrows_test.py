#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the checker over small trees, to prove that it finds each kind of violation."""

import tempfile
import unittest
from pathlib import Path

from check_arrows import check

# A tree without violations. Each case below adds one file to it.
HOUSE = {
    "QEVSettings/preferences/include/QEVSettings/preferences/Store.hpp": "#include <string>\n",
    "QEVSettings/include/QEVSettings/RootView.hpp": '#include "viewkit/View.hpp"\n#include "QEVModels/Model.hpp"\n',
    "platform/foundation/include/foundation/Store.hpp": '#include "QEVSettings/preferences/Store.hpp"\n',
    "platform/foundation/Store.cpp": '#include "foundation/Store.hpp"\n#include "Private.hpp"\n#include <sqlite3.h>\n',
    "platform/foundation/Private.hpp": "#include <unicode/utf8.h>\n",
    "platform/foundation/CMakeLists.txt": "qev_library(foundation SOURCES Store.cpp)\n",
    "platform/viewkit/include/viewkit/View.hpp": '#include "foundation/Store.hpp"\n#include <vector>\n',
    "platform/viewkit/tree/Node.hpp": '#include "viewkit/View.hpp"\n#include "viewkit/Generated.hpp"\n',
    "platform/viewkit/layout/Stack.hpp": '#include "tree/Node.hpp"\n#include "Lengths.hpp"\n',
    "platform/viewkit/layout/Lengths.hpp": "#include <vector>\n",
    "platform/viewkit/containers/Stacks.hpp": '#include "layout/Stack.hpp"\n#include "tree/Node.hpp"\n',
    "platform/viewkit/passes/Runtime.hpp": '#include "tree/Node.hpp"\n',
    "contracts/QEVModels/include/QEVModels/Model.hpp": '#include "QEVLog/Log.hpp"\n',
    "contracts/QEVLog/include/QEVLog/Log.hpp": '#include "foundation/Store.hpp"\n',
    "platform/qt/include/qt/Window.hpp": '#include <QWidget>\n#include "viewkit/View.hpp"\n',
    "platform/qt/bridge/Tree.hpp": '#include "viewkit/View.hpp"\n',
    "platform/qt/controls/Switch.hpp": '#include "bridge/Tree.hpp"\n',
    "platform/qt/window/Window.cpp": '#include "qt/Window.hpp"\n#include "controls/Switch.hpp"\n',
    "platform/qt/CMakeLists.txt": "qev_library(qt SOURCES window/Window.cpp)\n",
    "host/main.cpp": '#include "commands/Run.hpp"\n',
    "host/commands/Run.hpp": '#include "window/Main.hpp"\n#include <unistd.h>\n',
    "host/window/Main.hpp": '#include "QEVSettings/RootView.hpp"\n#include "qt/Window.hpp"\n#include <QWidget>\n',
    "host/CMakeLists.txt": 'add_executable(host "${CMAKE_CURRENT_SOURCE_DIR}/main.cpp")\n',
    "build/dev/generated.cpp": '#include "../anything"\n',
}

# The added file, its contents, and a part of its finding.
VIOLATIONS = [
    (
        "platform/viewkit/tree/Page.hpp",
        '#include "QEVSettings/RootView.hpp"',
        "viewkit may not use QEVSettings",
    ),
    (
        "platform/foundation/Page.hpp",
        '#include "viewkit/View.hpp"',
        "foundation may not use viewkit",
    ),
    ("platform/headless/Page.hpp", '#include "qt/Window.hpp"', "headless may not use qt"),
    ("platform/qt/bridge/Page.hpp", '#include "QEVModels/Model.hpp"', "qt may not use QEVModels"),
    ("QEVSettings/Page.hpp", '#include "qt/Window.hpp"', "QEVSettings may not use qt"),
    (
        "QEVSettings/preferences/Page.hpp",
        '#include "foundation/Store.hpp"',
        "preferences may not use foundation",
    ),
    ("contracts/QEVLog/Page.hpp", '#include "QEVModels/Model.hpp"', "QEVLog may not use QEVModels"),
    (
        "contracts/QEVLog/Page.hpp",
        "  #  include <QEVModels/Model.hpp>",
        "QEVLog may not use QEVModels",
    ),
    (
        "platform/viewkit/tree/Page.hpp",
        '#include "QEVSettings/Generated.hpp"',
        "viewkit may not use QEVSettings",
    ),
    ("fuzz/Page.hpp", '#include "qt/Window.hpp"', "fuzz may not use qt"),
    ("QEVSettings/Page.hpp", "#include <QString>", "neither ours nor the standard library's"),
    (
        "contracts/QEVLog/Page.hpp",
        '#include "QtCore/QString"',
        "neither ours nor the standard library's",
    ),
    (
        "platform/viewkit/tree/Page.hpp",
        "#include <nlohmann/json.hpp>",
        "neither ours nor the standard library's",
    ),
    (
        "platform/foundation/Page.hpp",
        "#include <nlohmann/json.hpp>",
        "neither ours nor the standard library's",
    ),
    (
        "platform/headless/Page.hpp",
        "#include <unistd.h>",
        "neither ours nor the standard library's",
    ),
    (
        "platform/foundation/include/foundation/Page.hpp",
        "#include <sqlite3.h>",
        "neither ours nor the standard",
    ),
    (
        "platform/qt/bridge/Page.hpp",
        '#include "../viewkit/include/viewkit/View.hpp"',
        'through ".."',
    ),
    ("platform/qt/bridge/Page.hpp", "#include PAGE_HEADER", "without the preprocessor"),
    (
        "platform/qt/bridge/Page.hpp",
        '#include "controls/Switch.hpp"',
        "qt/bridge may not use qt/controls",
    ),
    ("platform/qt/pages/Page.hpp", "", "stands in no inner folder of qt"),
    ("platform/foundation/Forgotten.cpp", "", "built by no CMakeLists.txt"),
    ("platform/foundation/AStore.cpp", "", "built by no CMakeLists.txt"),
    (
        "platform/viewkit/tree/Page.hpp",
        '#include "passes/Runtime.hpp"',
        "viewkit/tree may not use viewkit/passes",
    ),
    (
        "platform/viewkit/layout/Page.hpp",
        '#include "containers/Stacks.hpp"',
        "viewkit/layout may not use viewkit/cont",
    ),
    (
        "platform/viewkit/passes/Page.hpp",
        '#include "layout/Stack.hpp"',
        "viewkit/passes may not use viewkit/layout",
    ),
    (
        "platform/viewkit/include/viewkit/Page.hpp",
        '#include "tree/Node.hpp"',
        "viewkit/include may not use viewkit/tree",
    ),
    ("platform/viewkit/Page.hpp", "", "stands in no inner folder of viewkit"),
    ("platform/viewkit/menus/Page.hpp", "", "stands in no inner folder of viewkit"),
    (
        "host/window/Page.hpp",
        '#include "commands/Run.hpp"',
        "host/window may not use host/commands",
    ),
    ("host/Page.hpp", '#include "window/Main.hpp"', "host may not use host/window"),
    ("elsewhere/Page.hpp", "#include <vector>", "stands in no room"),
]


class CheckArrows(unittest.TestCase):
    def findings(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = Path(folder, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return check(Path(folder))

    def test_house_in_order_has_no_findings(self):
        self.assertEqual(self.findings(HOUSE), [])

    def test_each_violation_is_the_only_finding(self):
        for name, text, expected in VIOLATIONS:
            with self.subTest(name=name, text=text):
                findings = self.findings(HOUSE | {name: text})
                self.assertEqual(len(findings), 1, findings)
                self.assertTrue(findings[0].startswith(f"{name}: "), findings)
                self.assertIn(expected, findings[0])

    def test_nothing_to_read_is_a_finding(self):
        self.assertEqual(len(self.findings({"README.md": "#include <vector>"})), 1)


if __name__ == "__main__":
    unittest.main()
