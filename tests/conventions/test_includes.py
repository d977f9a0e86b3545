#!/usr/bin/env python3
"""The include check, shown to fail: every test plants one line in a small project."""
import tempfile
import unittest
from pathlib import Path

import includes

PROJECT = [
    "platform/result.h", "platform/services.h", "platform/plist/value.h",
    "platform/archive/keyed.h", "platform/foundation/text.h", "platform/uikit/view.h",
    "platform/preferences/cell.h", "prefs/core/store.h", "prefs/profiles/profile.h",
    "prefs/pages/page.h", "prefs/colorpicker/picker.h", "prefs/core/quorvantisprefsListController.h",
    "prefs/resources/bundle.h", "host/host.h", "services/bus.h", "apps/cli/cli.h",
    "apps/window/window.h", "tools/lists.h", "tests/a/helper.h",
]


class Includes(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for path in PROJECT:
            self.write(path, "#pragma once\n")

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def faults(self, path, text):
        self.write(path, text + "\n")
        return includes.faults(self.root)

    def allows(self, path, line):
        self.assertEqual(self.faults(path, line), [])

    def rejects(self, path, line, reason):
        found = self.faults(path, line)
        self.assertEqual(len(found), 1, found)
        self.assertTrue(found[0].startswith(path), found[0])
        self.assertIn(reason, found[0])

    # What each module may know.

    def test_an_untouched_project_is_clean(self):
        self.assertEqual(includes.faults(self.root), [])

    def test_the_device_may_put_services_and_host_together(self):
        self.allows("host/device.cpp", '#include "services/bus.h"\n#include "host/host.h"')

    def test_tests_may_put_services_and_host_together(self):
        self.allows("tests/a/a.cpp", '#include "services/bus.h"\n#include "host/host.h"')

    def test_root_may_know_every_module_of_prefs(self):
        self.allows("prefs/core/quorvantisprefsListController.cpp", '#include "prefs/pages/page.h"\n'
                    '#include "prefs/profiles/profile.h"\n#include "prefs/colorpicker/picker.h"')

    def test_a_generated_header_counts_as_part_of_its_module(self):
        self.allows("prefs/pages/a.cpp", '#include "prefs/keys.h"')
        self.rejects("platform/uikit/a.cpp", '#include "prefs/keys.h"', "may not know prefs/core")

    def test_pages_may_know_profiles(self):
        self.allows("prefs/pages/a.cpp", '#include "prefs/profiles/profile.h"')

    def test_preferences_may_know_all_of_platform(self):
        self.allows("platform/preferences/a.cpp", '#include "platform/uikit/view.h"\n'
                    '#include "platform/archive/keyed.h"\n#include "platform/services.h"')

    def test_foundation_may_call_posix(self):
        self.allows("platform/foundation/a.cpp", "#include <fcntl.h>\n#include <sys/stat.h>")

    def test_moc_output_of_the_file_itself_is_known(self):
        self.allows("apps/window/model.cpp", '#include "model.moc"')

    # Knowledge runs one way.

    def test_platform_may_not_know_prefs(self):
        self.rejects("platform/uikit/a.cpp", '#include "prefs/core/store.h"', "may not know")

    def test_platform_may_not_know_services(self):
        self.rejects("platform/foundation/a.h", '#include "services/bus.h"', "may not know")

    def test_prefs_may_not_know_host(self):
        self.rejects("prefs/core/quorvantisprefsListController.cpp", '#include "host/host.h"', "may not know host")

    def test_prefs_may_not_know_services(self):
        self.rejects("prefs/core/a.cpp", '#include "services/bus.h"', "may not know services")

    def test_prefs_may_not_know_apps(self):
        self.rejects("prefs/pages/a.cpp", '#include "apps/cli/cli.h"', "may not know apps/cli")

    def test_host_may_not_know_services(self):
        self.rejects("host/a.cpp", '#include "services/bus.h"', "may not know services")

    def test_host_may_not_know_apps(self):
        self.rejects("host/a.cpp", '#include "apps/cli/cli.h"', "may not know apps/cli")

    def test_services_may_not_know_host(self):
        self.rejects("services/a.cpp", '#include "host/host.h"', "may not know host")

    def test_services_may_not_know_prefs(self):
        self.rejects("services/a.cpp", '#include "prefs/core/store.h"', "may not know prefs/core")

    def test_the_command_line_may_not_know_the_window(self):
        self.rejects("apps/cli/a.cpp", '#include "apps/window/window.h"', "may not know")

    def test_the_window_may_know_host(self):
        self.allows("apps/window/a.cpp", '#include "host/host.h"')

    def test_the_window_may_not_know_platform(self):
        self.rejects("apps/window/a.cpp", '#include "platform/uikit/view.h"', "may not know")

    def test_the_window_may_not_know_prefs(self):
        self.rejects("apps/window/a.cpp", '#include "prefs/core/store.h"', "may not know")

    def test_nothing_that_ships_may_know_the_tests(self):
        self.rejects("apps/cli/a.cpp", '#include "tests/a/helper.h"', "may not know tests")

    # Inside platform.

    def test_plist_may_not_know_foundation(self):
        self.rejects("platform/plist/a.cpp", '#include "platform/foundation/text.h"', "may not")

    def test_archive_may_not_know_foundation(self):
        self.rejects("platform/archive/a.cpp", '#include "platform/foundation/text.h"', "may not")

    def test_plist_may_not_know_archive(self):
        self.rejects("platform/plist/a.cpp", '#include "platform/archive/keyed.h"', "may not")

    def test_foundation_may_not_know_uikit(self):
        self.rejects("platform/foundation/a.cpp", '#include "platform/uikit/view.h"', "may not")

    def test_foundation_may_not_know_archive(self):
        self.rejects("platform/foundation/a.cpp", '#include "platform/archive/keyed.h"', "may not")

    def test_uikit_may_not_know_preferences(self):
        self.rejects("platform/uikit/a.cpp", '#include "platform/preferences/cell.h"', "may not")

    def test_uikit_may_not_know_archive(self):
        self.rejects("platform/uikit/a.cpp", '#include "platform/archive/keyed.h"', "may not")

    def test_uikit_may_not_know_services(self):
        self.rejects("platform/uikit/a.cpp", '#include "platform/services.h"', "may not")

    def test_result_may_not_know_anything(self):
        self.rejects("platform/result.h", '#include "platform/plist/value.h"', "may not")

    # Inside prefs.

    def test_core_may_not_know_pages(self):
        self.rejects("prefs/core/a.cpp", '#include "prefs/pages/page.h"', "may not know")

    def test_core_may_not_know_profiles(self):
        self.rejects("prefs/core/a.cpp", '#include "prefs/profiles/profile.h"', "may not know")

    def test_profiles_may_not_know_pages(self):
        self.rejects("prefs/profiles/a.cpp", '#include "prefs/pages/page.h"', "may not know")

    def test_colorpicker_may_not_know_pages(self):
        self.rejects("prefs/colorpicker/a.cpp", '#include "prefs/pages/page.h"', "may not know")

    def test_colorpicker_may_not_know_profiles(self):
        self.rejects("prefs/colorpicker/a.h", '#include "prefs/profiles/profile.h"', "may not")

    def test_pages_may_not_know_the_colorpicker(self):
        self.rejects("prefs/pages/a.cpp", '#include "prefs/colorpicker/picker.h"', "may not know")

    def test_pages_may_not_know_root(self):
        self.rejects("prefs/pages/a.cpp", '#include "prefs/core/quorvantisprefsListController.h"', "may not know")

    def test_the_bundle_may_know_root(self):
        self.allows("prefs/resources/a.cpp", '#include "prefs/core/quorvantisprefsListController.h"')

    def test_root_may_not_know_the_bundle(self):
        self.rejects("prefs/core/quorvantisprefsListController.cpp", '#include "prefs/resources/bundle.h"', "may not know")

    # What is not part of the project.

    def test_prefs_may_not_call_posix(self):
        self.rejects("prefs/core/a.cpp", "#include <unistd.h>", "posix")

    def test_platform_outside_foundation_may_not_call_posix(self):
        self.rejects("platform/plist/a.cpp", "#include <sys/mman.h>", "posix")

    def test_the_kernels_headers_are_not_mistaken_for_a_folder_of_the_project(self):
        self.allows("platform/foundation/a.cpp", "#include <linux/openat2.h>")
        self.rejects("prefs/core/a.cpp", "#include <linux/openat2.h>", "posix")

    def test_a_c_header_with_posix_functions_is_posix(self):
        self.rejects("platform/archive/a.cpp", "#include <stdio.h>", "posix")

    def test_host_may_not_call_posix(self):
        self.rejects("host/a.cpp", "#include <unistd.h>", "posix")

    def test_no_qt_outside_the_window(self):
        for path in ("apps/cli/a.cpp", "host/a.cpp", "services/a.cpp", "prefs/pages/a.cpp"):
            with self.subTest(path):
                self.rejects(path, "#include <QString>", "qt")
                (self.root / path).unlink()

    def test_no_qt_by_its_module_name(self):
        self.rejects("host/a.cpp", "#include <QtCore/qstring.h>", "host")

    def test_no_qml_outside_the_window(self):
        self.rejects("host/Page.qml", "import QtQuick", "QML")

    def test_no_third_party_header_in_prefs_platform_or_host(self):
        for header in ("nlohmann/json.hpp", "expat.h", "unicode/coll.h", "glib.h",
                       "gio/gio.h", "systemd/sd-bus.h", "plist/plist.h", "gtest/gtest.h"):
            for path in ("prefs/core/a.cpp", "platform/foundation/a.cpp", "host/a.cpp"):
                with self.subTest(header=header, path=path):
                    self.rejects(path, f"#include <{header}>", "may not include")
                    (self.root / path).unlink()

    def test_services_may_not_take_the_command_lines_libraries(self):
        self.rejects("services/a.cpp", "#include <nlohmann/json.hpp>", "json")

    # Nothing slips through.

    def test_an_unknown_header_is_a_fault(self):
        self.rejects("tests/a/a.cpp", "#include <boost/any.hpp>", "unknown")

    def test_a_c_header_has_its_cpp_name(self):
        self.rejects("prefs/core/a.cpp", "#include <string.h>", "unknown")

    def test_a_missing_file_is_a_fault(self):
        self.rejects("prefs/core/a.cpp", '#include "prefs/core/gone.h"', "no such file")

    def test_a_path_from_the_own_folder_is_a_fault(self):
        self.rejects("prefs/core/a.cpp", '#include "store.h"', "no such file")

    def test_a_path_with_dots_is_a_fault(self):
        self.rejects("prefs/core/a.cpp", '#include "prefs/core/../../services/bus.h"', "dots")

    def test_a_project_file_in_angle_brackets_is_a_fault(self):
        self.rejects("prefs/core/a.cpp", "#include <services/bus.h>", "quotes")

    def test_an_include_of_a_macro_is_a_fault(self):
        self.rejects("prefs/core/a.cpp", "#include HEADER", "name its file")

    def test_a_file_that_nothing_checks_is_a_fault(self):
        self.write("prefs/core/hidden.txt", '#include "services/bus.h"\n')
        self.rejects("prefs/core/a.cpp", '#include "prefs/core/hidden.txt"', "not a source file")

    def test_spaces_do_not_hide_an_include(self):
        self.rejects("prefs/core/a.cpp", '  #  include  "services/bus.h"', "may not know services")

    def test_a_folded_line_does_not_hide_an_include(self):
        self.rejects("prefs/core/a.cpp", '#include \\\n"services/bus.h"', "may not know services")

    def test_a_module_import_is_a_fault(self):
        self.rejects("prefs/core/a.cpp", 'import "services/bus.h";', "module")

    def test_a_source_outside_all_modules_is_a_fault(self):
        self.rejects("extra/a.cpp", "#include <string>", "outside all modules")

    def test_the_build_folder_does_not_count(self):
        self.allows("build/test/a.cpp", "#include <boost/any.hpp>")


if __name__ == "__main__":
    unittest.main()
