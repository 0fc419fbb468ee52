#!/usr/bin/env python3
"""Runs kalo over the sample databases: kalo_test.py SAMPLE-DIRECTORY PROGRAM…"""
import csv
import hashlib
import io
import json
import os
import pathlib
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import unicodedata
import unittest

SAMPLES = pathlib.Path(sys.argv[1])
PROGRAM = sys.argv[2:]
AMPA = "--model 17".split()
EVERYTHING = ("--model 18 --firmware 5 --cmod 202 --power 4 "
              "--option 3 --option-firmware 3 --option-cmod 202").split()
# Amplifier and option unit with their versions; numbers of parameters, monitors, alarms, fixed inputs and outputs.
AXES = [
    (EVERYTHING, 485, 160, 85, 12, 10),
    ("--model 0x11 --firmware 6 --cmod 101 --power 3".split(), 376, 152, 79, 8, 8),
    ("--model 17 --firmware 1 --power 3".split(), 374, 152, 80, 8, 8),
    ("--model 34 --firmware 4 --cmod 202 --power 4".split(), 394, 156, 80, 8, 8),
    ("--model 17 --firmware 6 --power 3 --option 5 --option-firmware 4".split(), 386, 154, 85, 12, 10),
]


def display_width(text):
    return sum(2 if unicodedata.east_asian_width(sign) in "WF" else 1 for sign in text)


def snapshot(directory):
    return {path.name: (hashlib.sha256(path.read_bytes()).hexdigest(), path.stat().st_mtime_ns)
            for path in directory.iterdir()}


# Each start of Wine takes its time, and the tour of the exported functions compares what the systems answer.
LONG = unittest.skipIf(len(PROGRAM) > 1, "the tour compares the answers")


class KaloTest(unittest.TestCase):
    """Every test has its own copies of the samples and its own directory for temporary files. In the end the copies
    are as they were, and nothing temporary is left."""

    def setUp(self):
        self.root = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.root)
        self.files = self.root / "files"
        self.temporary = self.root / "temporary"
        self.files.mkdir()
        self.temporary.mkdir()
        for name in ("IdeInfo.mdb", "IdeInfoJ.mdb"):
            shutil.copy(SAMPLES / name, self.files)
        self.english = str(self.files / "IdeInfo.mdb")
        self.japanese = str(self.files / "IdeInfoJ.mdb")
        self.before = snapshot(self.files)

    def tearDown(self):
        self.assertEqual(snapshot(self.files), self.before)
        self.assertEqual(list(self.temporary.iterdir()), [])

    def environment(self):
        temporary = str(self.temporary)
        return {**os.environ, "TMPDIR": temporary, "TMP": temporary, "TEMP": temporary}

    def run_kalo(self, *arguments):
        done = subprocess.run([*PROGRAM, *arguments], capture_output=True, env=self.environment(), timeout=120,
                              check=False)
        return done.returncode, done.stdout.decode("utf-8"), done.stderr.decode("utf-8")

    def answer(self, *arguments):
        code, out, err = self.run_kalo(*arguments)
        self.assertEqual((code, err), (0, ""), arguments)
        return out

    def rows(self, *arguments):
        return json.loads(self.answer(*arguments, "--format", "json"))


@LONG
class Combinations(KaloTest):
    def test_sizes_of_what_versions_make(self):
        for axis, parameters, monitors, alarms, inputs, outputs in AXES:
            with self.subTest(axis=axis):
                self.assertEqual(len(self.rows("params", self.english, *axis)), parameters)
                self.assertEqual(len(self.rows("monitors", self.english, *axis)), monitors)
                fixed = [row["kind"] for row in self.rows("io", self.english, *axis, "--fixed")]
                self.assertEqual((fixed.count("input"), fixed.count("output")), (inputs, outputs))
                life = {row["item"]: row["value"] for row in self.rows("axis", self.english, *axis)}
                self.assertEqual((life["user parameters"], life["fixed inputs"], life["fixed outputs"]),
                                 (parameters, inputs, outputs))
                self.assertIs(life["gone after its removal"], True)

    def test_alarms_are_all_found(self):
        self.assertEqual(len(self.rows("alarms", self.english, *EVERYTHING)), 85)

    def test_firmware_changes_a_limit_step_by_step(self):
        for firmware, limit in ((1, 5000), (2, 8000), (4, 8000), (6, 10000)):
            rows = self.rows("params", self.english, *AMPA, "--firmware", str(firmware))
            self.assertEqual([row["max"] for row in rows if row["number"] == "P2.00"], [limit])

    def test_a_variant_has_the_parameters_of_the_model_it_stands_for(self):
        variant = self.answer("params", self.english, "--model", "0x111", "--firmware", "2", "--format", "csv")
        self.assertEqual(variant,
                         self.answer("params", self.english, "--model", "19", "--firmware", "2", "--format", "csv"))

    def test_groups(self):
        every = self.rows("params", self.english, *AMPA)
        category = self.rows("params", self.english, *AMPA, "--group", "basic SETUP")
        self.assertEqual(category, [row for row in every if row["category_id"] == 10])
        added = self.rows("params", self.english, *AMPA, "--group", "40001")
        self.assertEqual([row["number"] for row in added][:3], ["P0.00", "P0.01", "P0.02"])
        self.assertEqual(added, self.rows("params", self.english, *AMPA, "--group", "Quick start"))

    def test_digits_show_values_and_meanings(self):
        lines = self.answer("params", self.english, *AMPA, "--digits").splitlines()
        self.assertEqual(lines[:4], ["P0.00  Basic function word", "    digit 0  Direction of motion",
                                     "      * 0  Positive command: counterclockwise",
                                     "        1  Positive command: clockwise"])
        flat = self.rows("params", self.english, *AMPA, "--digits")
        def meanings(rows):
            return [(row["number"], row["digit"], row["value"], row["meaning"]) for row in rows]
        self.assertIn(("P0.00", 0, 1, "Positive command: clockwise"), meanings(flat))
        values = self.rows("params", self.english, *AMPA, "--values")
        self.assertEqual(meanings(values), meanings(flat))
        self.assertEqual({row["message_type"] for row in values if row["number"] == "P0.00"}, {0, 1})
        for view in ("--digits", "--values"):
            alone = self.rows("params", self.english, *AMPA, "--id", "0", view)
            self.assertEqual(alone, [row for row in self.rows("params", self.english, *AMPA, view)
                                     if row["number"] == "P0.00"])

    def test_one_parameter_by_its_id_or_place(self):
        every = self.rows("params", self.english, *AMPA)
        for place in (0, 17, len(every) - 1):
            self.assertEqual(self.rows("params", self.english, *AMPA, "--index", str(place)), [every[place]])
            wanted = hex(every[place]["parameter_id"])
            self.assertEqual(self.rows("params", self.english, *AMPA, "--id", wanted), [every[place]])

    def test_control_modes_choose_parameters_and_monitors(self):
        for command, column in (("params", "sv_control_type"), ("monitors", "control_type_mask")):
            every = self.rows(command, self.english, *AMPA)
            for mask in (0, 1, 2, 4, 6, 7):
                self.assertEqual(self.rows(command, self.english, *AMPA, "--control-mask", str(mask)),
                                 [row for row in every if row[column] & mask], (command, mask))

    def test_versions_are_compared(self):
        for arguments, changed in (("--compare 1 2", True), ("--compare 6 5", True), ("--compare 2 3", False),
                                   ("--option 5 --compare-option 1 4", True), ("--compare-option 1 4", False),
                                   ("--option 5 --compare 2 2 --compare-option 1 3", False)):
            rows = self.rows("params", self.english, *AMPA, *arguments.split())
            self.assertIs(rows[0]["changed"], changed, arguments)


class Answers(KaloTest):
    # Command, arguments behind the file, lines of the table for people that have to be there.
    CASES = [
        ("models", "--ratings 17", ["1  50 W             1  100 V AC        1200            4200"]),
        ("models", "--indexer", ["model_id  option_id  name"]),
        ("models", "--ratings 17 --format csv", ["1,50 W,1,100 V AC,L (100 V AC),1200,4200"]),
        ("models", "--options 18", ["3  FNU30  Field network unit FNU30", "5  FBU50  Feedback unit FBU50"]),
        ("models", "--cmods 18 --option 3", ["amplifier        101\namplifier        202\noption unit      202"]),
        ("models", "--cmods 19", ["of  cmod_id\n"]),
        ("params", "--model 17 --switch 2", ["2         4  P0.03            0x3  Tuning mode word      2    0x1"]),
        ("params", "--fixed-name 21 --language 2", ["21  Drehzahlregler-Verst. 1"]),
        ("motors", "--motor 502", ["outer size   3  Ø 230 mm             35 N·m"]),
        ("motors", "--motor 303 --power 8", ["power     8  5.5 kW", "voltage   3  400 V AC  5.5 kW  H"]),
        ("motors", "--control-type 1", ["401  LX iron core"]),
        ("axis", "--model 18 --firmware 5 --motor 302 --encoder 4 --encoder-firmware 3", [
            "motor      name                             RM medium inertia",
            "encoder    type                             ABS26MT"]),
        ("encoders", "--language 1", ["12  正弦波スケール"]),
        ("encoders", "--motor 301 --encoder 1 --firmware 3", ["301           1         3       20  INC20"]),
        ("help", "--model 18 --screen inertia", ["inertia     2  common/tuning.htm#inertia_start",
                                                  "inertia     3  ampb200/tuning.htm#inertia_result"]),
        ("help", "--pulses", ["form             2  Two phases A and B"]),
        ("monitors", "--category 1", ["0x101  Speed command                        1"]),
        ("monitors", "--model 17 --id 0x100", ["0x100  Motor speed"]),
        ("alarms", "--model 17 --code 0xA30A", ["0xA30A  Runaway detected",
                                                 "confirm  Check the order U, V, W and the connector.",
                                                 "factor   The motor phases are swapped or open.",
                                                 "plan     Correct the wiring.",
                                                 "0x205 In position (condition 3, value 800)"]),
        ("alarms", "--model 17 --indexer-code 0x123", ["0x123  0x23  UNKNOWN"]),
        ("alarms", "--model 17 --monitors", ["monitor of the alarm                 0x500"]),
        ("io", "--model 17 --value 0x4301 --address 0x13008", [
            "input at 0x13008", "4 3 0 1", "│ │ │ └─ digit 0: SON on DI1 (CN1-11)", "│ │ └─── digit 1: no signal",
            "│ └───── digit 2: FLS on DI3 (CN1-13), active low", "└─────── digit 3: RLS on DI4 (CN1-14), active low"]),
        ("io", "--model 17 --inputs --value 1 --select 1 --address 0x13008", [
            "the selection parameter chooses input mode 2; no digit counts"]),
        ("io", "--pelk 1", ["PELK  SON     P2-1"]),
        ("io", "--model 17 --parameters --inputs", ["input             0x601"]),
        ("traces", "--model 17 --convert 5", ["5          3"]),
        ("traces", "--none", ["analog  9999"]),
        ("traces", "--offline 5", ["Position command speed"]),
        ("traces", "--io --model 17 --control-type 1 --kind 2", ["203  FLS           0x4  true"]),
    ]

    @LONG
    def test_lines(self):
        for command, arguments, lines in self.CASES:
            with self.subTest(command=command, arguments=arguments):
                out = self.answer(command, self.english, *arguments.split())
                for line in lines:
                    self.assertIn(line, out)

    def test_support_words_choose_targets(self):
        def supported(*words):
            rows = self.rows("traces", self.english, *AMPA, "--support", *words)
            return [(row["support_word"], row["support_bit"]) for row in rows]
        self.assertEqual(supported("0"), [])
        self.assertEqual(supported("0x5"), [(0, 0), (0, 2)])
        self.assertTrue(set(supported("0x5", "0xFFFF")) > {(0, 0), (0, 2), (1, 0)})
        self.assertEqual(self.rows("traces", self.english, *AMPA, "--kind", "33"), [])

    def test_positions_number_what_a_kind_lists(self):
        for way in ("--analog", "--io"):
            listed = self.rows("traces", self.english, *AMPA, way, "--kind", "2")
            listed = [row for row in listed if row.get("listed", True)]
            for place in (0, 1, len(listed) - 1):
                row = self.rows("traces", self.english, *AMPA, way, "--kind", "2", "--position", str(place))[0]
                self.assertEqual(row, {key: listed[place][key] for key in row})

    def test_monitors_without_a_drive(self):
        every = self.rows("monitors", self.english)
        self.assertEqual(len(every), 149)
        maintenance = self.rows("monitors", self.english, "--category", "5")
        self.assertEqual((len(maintenance), maintenance), (11, every[-11:]))
        self.assertEqual(self.rows("monitors", self.english, "--category", "65535"), [])

    def test_info(self):
        rows = [tuple(row.values()) for row in self.rows("info", self.english)]
        for row in (("file", "name", "IdeInfo.mdb"), ("file", "version", "1.4.0"), ("file", "status", "Close"),
                    ("table rows", "FirmUPara", 89), ("table rows", "tablemanager", 0),
                    ("number of", "models without a type known off-line", 3), ("number of", "option units", 2),
                    ("language", 2, "617 parameter names"), ("changed by firmware", "model 17", "2, 4, 6"),
                    ("model", "model 18 with option 3", "AMPB200 with FNU30")):
            self.assertIn(row, rows)
        self.assertEqual(sum(row[0] == "table rows" for row in rows), 109)


class Sql(KaloTest):
    def test_statements_run_in_order_on_the_copy(self):
        out = self.answer("sql", self.english, "CREATE TABLE [t] ([a] LONG, [b] TEXT(20))",
                          "INSERT INTO t VALUES (1, 'x')", "SELECT * FROM t", "DELETE FROM t", "SELECT * FROM t")
        self.assertEqual(out.split("\n\n"), ["0 rows", "1 row", "a  b\n1  x", "1 row", "a  b\n"])

    def test_a_refused_statement_keeps_what_came_before(self):
        code, out, err = self.run_kalo("sql", self.english, "SELECT COUNT(*) AS n FROM unit", "SELECT * FROM nowhere",
                                       "SELECT 2")
        self.assertEqual((code, out.split()), (1, ["n", "69"]))
        self.assertRegex(err, "^error 3078: .*nowhere")

    def test_values_keep_their_types(self):
        sql = ["CREATE TABLE t (a LONG, b DOUBLE, c CURRENCY, d DATETIME, e BIT, f TEXT(40), g SINGLE)",
               "INSERT INTO t VALUES (-5, 0.25, 12.5, #2024-02-29 13:05:09#, TRUE, 'a,\"b\" ü', 0.1)",
               "INSERT INTO t (a) VALUES (1)", "SELECT * FROM t"]
        out = self.answer("sql", self.english, *sql, "--format", "json")
        rows = json.loads("[" + out.split("\n[", 3)[-1])
        self.assertEqual(rows[0], {"a": -5, "b": 0.25, "c": "12.5000", "d": "2024-02-29 13:05:09", "e": True,
                                   "f": 'a,"b" ü', "g": 0.1})
        self.assertEqual((rows[1]["a"], rows[1]["b"], rows[1]["f"]), (1, None, None))

    def test_rows_that_are_only_in_the_log_beside_the_file(self):
        path = self.files / "engine.mdb"
        connection = sqlite3.connect(path)
        connection.execute("PRAGMA journal_mode = WAL")
        connection.execute("PRAGMA wal_autocheckpoint = 0")
        connection.execute("CREATE TABLE t (a INTEGER)")
        connection.execute("INSERT INTO t VALUES (7)")
        connection.commit()
        self.before = snapshot(self.files)
        self.assertEqual(self.answer("sql", str(path), "SELECT a FROM t").split(), ["a", "7"])
        self.assertEqual(snapshot(self.files), self.before)
        connection.close()
        self.before = snapshot(self.files)


class Formats(KaloTest):
    def test_csv_and_json_say_the_same(self):
        arguments = ("sql", self.english, "SELECT * FROM mdbname")
        out = self.answer(*arguments, "--format", "csv")
        self.assertIn('"', out)  # the note has line ends
        read = list(csv.DictReader(io.StringIO(out, newline=""), strict=True))
        self.assertEqual([row["mdb_note"] for row in read], [row["mdb_note"] for row in self.rows(*arguments)])
        self.assertTrue(out.startswith("id,mdbname,mdb_version,") and out.endswith("\r\n"))

    def test_columns_stand_under_each_other_in_japanese(self):
        out = self.answer("params", self.japanese, *AMPA, "--language", "1").splitlines()
        column = display_width(out[0][:out[0].index("category")])
        for line in out[1:]:
            # The number, the id and the name end before the column of the category begins.
            before = 0
            for at, sign in enumerate(line):
                if before >= column:
                    break
                before += display_width(sign)
            self.assertEqual((before, line[at - 2:at]), (column, "  "), line)

    def test_one_line_a_row_whatever_the_texts_hold(self):
        self.assertEqual(len(self.answer("sql", self.english, "SELECT * FROM mdbname").splitlines()), 2)


class Failures(KaloTest):
    # Command line with FILE for the database, exit code, what standard error says.
    CASES = [
        ("params FILE --model 99", 1, ["the model", "is unknown", "0x2BFF0750"]),
        ("params FILE --model 17 --option 9", 1, ["0x2BFF0750"]),
        ("params FILE --model 17 --language 9", 1, ["in the language", "0x2A000005"]),
        ("monitors FILE --model 17 --language 9", 1, ["language", "0x2A000076"]),
        ("monitors FILE --model 17 --category 5", 1, ["category", "0x2A000023|0x2A00002D"]),
        ("monitors FILE --model 17 --id 1", 1, ["no such monitor", "0x2A00002B"]),
        ("params FILE --model 17 --group Nothing", 1, ["no group", "Quick start"]),
        ("help FILE --model 19 --screen gaintuning", 1, ["no such page"]),
        ("params FILE --model 17 --id 9999", 1, ["no such parameter", "0x2A000071"]),
        ("params FILE --model 17 --index 374", 1, ["past the last", "0x2B750BCD"]),
        ("params FILE --model 17 --switch 99", 1, ["no such function", "0x2BFF148F"]),
        ("params FILE --fixed-name 9999", 1, ["no such name", "0x2BFF1200"]),
        ("motors FILE --motor 9", 1, ["no such motor", "0x2B670BCD"]),
        ("motors FILE --motor 301 --power 99", 1, ["no such power", "0x2B690BCD"]),
        ("traces FILE --model 17 --position 99", 1, ["nothing at position 99"]),
        ("traces FILE --io --model 17 --position 99", 1, ["nothing at position 99"]),
        ("axis FILE --model 99", 1, ["0x2BFF0750"]),
        ("io FILE --model 17 --value 1 --address 5", 1, ["no parameter at 0x5"]),
        ("io FILE --pelk 77", 1, ["0x2A00007B"]),
        ("traces FILE --model 17 --convert 77", 1, ["unknown", "0x2BFF16CB"]),
        ("traces FILE --model 17 --spec-version 0", 1, ["0x2BFF1261"]),
        ("params nowhere.mdb --model 17", 1, ["nowhere.mdb", "does not exist"]),
        ("params DIRECTORY --model 17", 1, ["directory"]),
        ("params TEXT --model 17", 1, ["not a database", "3343", "0x2B010D0F"]),
        ("info TEXT", 1, ["error 3343"]),
        ("sql FILE --password wrong SELECT", 1, ["error 3031"]),
        ("status 0x77", 1, ["no function"]),
        ("", 2, []), ("nonsense", 2, ["nonsense"]), ("params FILE", 2, ["--model"]), ("sql FILE", 2, ["STATEMENT"]),
        ("params FILE --model 17x", 2, ["17x"]), ("params FILE --model 0x1FFFFFFFF", 2, ["0x1FFFFFFFF"]),
        ("params FILE --model 17 --language -1", 2, ["-1"]), ("io FILE --model 17 --value 0x10000", 2, ["0x10000"]),
        ("params FILE --model 17 --format xml", 2, ["xml"]), ("io FILE", 2, ["--model"]),
        ("params FILE --model 17 --id 1 --index 1", 2, ["--index"]), ("params FILE --model 17 --compare 1 x", 2, ["x"]),
        ("params FILE --model 17 --compare 1", 2, ["--compare"]), ("motors FILE --power 1", 2, ["--motor"]),
        ("traces FILE --model 17 --support 5 x", 2, ["x"]), ("monitors FILE --id 5", 2, ["--model"]),
    ]

    def test_say_what_is_wrong(self):
        (self.files / "text.txt").write_text("no database\n" * 1000)
        self.before = snapshot(self.files)
        places = {"FILE": self.english, "TEXT": str(self.files / "text.txt"), "DIRECTORY": str(self.files)}
        for line, code, words in self.CASES:
            with self.subTest(line=line):
                got, out, err = self.run_kalo(*[places.get(word, word) for word in line.split()])
                self.assertEqual((got, out), (code, ""), err)
                for word in words:
                    self.assertRegex(err, word)

    def test_wrong_password_of_the_database(self):
        # The password in the header, masked, is no longer the library's.
        data = bytearray((self.files / "IdeInfo.mdb").read_bytes())
        data[0x42] ^= 1
        other = self.files / "other.mdb"
        other.write_bytes(data)
        self.before = snapshot(self.files)
        code, _, err = self.run_kalo("params", str(other), *AMPA)
        self.assertEqual(code, 1)
        self.assertRegex(err, "the password is wrong .*0x2B010BD7")

    def test_status_words(self):
        out = self.answer("status", "0x2B010BD7")
        self.assertIn("KaloOpen", out)
        self.assertIn("the password is wrong", out)
        shared = json.loads(self.answer("status", "0x2A00002C", "--format", "json"))
        self.assertGreater(len(shared), 1)

    @unittest.skipIf(len(PROGRAM) > 1, "signals are of the other system")
    def test_signals_leave_nothing_behind(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            for delay in (0.0, 0.02, 0.1, 0.3):
                with subprocess.Popen([*PROGRAM, "alarms", self.english, *AMPA], stdout=subprocess.DEVNULL,
                                      env=self.environment()) as process:
                    deadline = time.monotonic() + 20
                    while not list(self.temporary.iterdir()) and time.monotonic() < deadline:
                        time.sleep(0.001)
                    time.sleep(delay)
                    process.send_signal(number)
                    self.assertIn(process.wait(60), (-number, 0))
                self.assertEqual(list(self.temporary.iterdir()), [])

    @unittest.skipIf(len(PROGRAM) > 1, "pipes are of the other system")
    def test_a_reader_that_goes_away_is_no_failure(self):
        with subprocess.Popen([*PROGRAM, "params", self.english, *AMPA, "--format", "json"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, env=self.environment()) as process:
            process.stdout.close()
            self.assertEqual((process.stderr.read(), process.wait(60)), (b"", 0))

    @unittest.skipIf(len(PROGRAM) > 1 or not os.path.exists("/dev/full"), "needs a full device")
    def test_output_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([*PROGRAM, "models", self.english], stdout=full, stderr=subprocess.PIPE,
                                  env=self.environment(), timeout=60, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"cannot be written", done.stderr)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"] if os.environ.get("VERBOSE") else [sys.argv[0]])
