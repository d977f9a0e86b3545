"""What ./bench makes of its samples, and the scripts beside it."""
import importlib.machinery
import importlib.util
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCE / "benchmarks/driver"))
import growth  # noqa: E402
import plot  # noqa: E402
import table  # noqa: E402
from lines import Line, spread, value  # noqa: E402


def script(name):
    loader = importlib.machinery.SourceFileLoader(name.replace("-", "_"), str(SOURCE / "scripts" / name))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


LINE = Line("sort", {"ours": [20, 40, 30], "quick": [40, 80, 60], "slow": [99, 99, 99], "bare": [10, 20, 5]},
            floor="bare", wanted={"quick": 0.4, "bare": 2, "absent": 0.1}, most=25)


class Bench(unittest.TestCase):
    def test_ratios_are_medians_of_rounds(self):
        self.assertEqual(LINE.best_peer(), "quick")
        self.assertEqual(LINE.ratio("quick"), 0.5)
        self.assertEqual(LINE.ratio("bare"), 2)  # of 2, 2 and 6

    def test_what_is_wanted_and_not_reached_is_named(self):
        self.assertEqual(list(LINE.faults()), ["sort: 0.50 of quick, wanted 0.4", "sort: 30 ns, wanted 25 ns"])

    def test_spread_is_of_the_medians_of_five_parts(self):
        self.assertEqual(spread([1, 9, 1, 2, 2, 2, 2, 2, 0, 2, 2, 2, 3, 3, 0]), 1)  # 1 to 3 around 2
        self.assertEqual(spread([7] * 10), 0)

    def test_an_unsteady_line_is_marked(self):
        rounds = [1, 1, 1, 1, 1.2]
        unsteady = Line("read", {"ours": rounds, "stat": [1] * 5}, floor="stat")
        self.assertEqual(table.cells(unsteady)[-1], "20% !")

    def test_times_have_units_that_suit_them(self):
        self.assertEqual([value(number, "ns") for number in (12, 3456, 7.89e6)], ["12 ns", "3.46 µs", "7.89 ms"])
        self.assertEqual(value(108, "opens"), "108 opens")

    def test_table_names_each_competitor(self):
        [row] = list(table.markdown([LINE]))[2:]
        self.assertEqual(row, "| sort | 30 ns | quick 60 ns, slow 99 ns | bare 10 ns | 0.50 | 2.00 | 0% |")

    def test_growth_is_the_time_of_a_doubling(self):
        measured = {16: [100.0, 110.0, 90.0], 64: [400.0, 440.0, 990.0], 128: [1200.0, 1320.0, 0.5]}
        self.assertEqual([round(each, 6) for _, each in growth.doublings(measured)], [2, 3])
        self.assertEqual(growth.worst(measured)[0], 128)

    def test_plot_is_xml_with_a_point_for_each_size(self):
        measured = {10: [700.0], 20: [1500.0], 40: [2900.0]}
        drawn = xml.etree.ElementTree.fromstring("\n".join(plot.svg({"log": measured, "set": measured})))
        self.assertEqual(len(drawn.findall("{http://www.w3.org/2000/svg}circle")), 6)

    def test_build_times_are_of_the_latest_step_of_each_output(self):
        with tempfile.TemporaryDirectory() as folder:
            log = Path(folder, ".ninja_log")
            log.write_text("# ninja log v5\n"
                           "0\t9000\t1\tlib/CMakeFiles/host.dir/a.cpp.o\tff\n"
                           "0\t2000\t1\tlib/CMakeFiles/host.dir/a.cpp.o\tff\n"
                           "2000\t3000\t1\tlibhost.a\tee\n")
            module = script("build-times")
            self.assertEqual(module.steps(log), {"lib/CMakeFiles/host.dir/a.cpp.o": 2, "libhost.a": 1})
            self.assertEqual({module.target_of(output) for output in module.steps(log)}, {"host"})

    def test_more_instructions_than_the_margin_are_found(self):
        module = script("instruction-counts")
        known = {"get": 1000, "set": 1000, "sort": 1000}
        self.assertEqual(module.compare({"get": 1029, "set": 1031, "sort": 500}, known), ["set"])
