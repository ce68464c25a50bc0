"""The reader that docs/formats.md shows reads what kvx writes.

usage: formats_test.py KVX DOCUMENT SHEET
"""

import os
import subprocess
import sys
import tempfile
import tomllib
import unittest

KVX, DOCUMENT, SHEET = sys.argv[1:4]


def reader():
    with open(DOCUMENT, encoding="utf-8") as file:
        text = file.read()
    begin = text.index("\n", text.index("```", text.index("<!-- reader -->"))) + 1
    names = {"__name__": "reader"}
    exec(compile(text[begin:text.index("```", begin)], DOCUMENT, "exec"), names)
    return names


class Formats(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.project = os.path.join(self.place.name, "design.kvx")
        subprocess.run([KVX, "convert", SHEET, self.project], cwd=self.place.name, check=True)
        self.read = reader()["read"]

    def tearDown(self):
        self.place.cleanup()

    def test_reads_what_was_saved(self):
        with open(SHEET, "rb") as file:
            sheet = tomllib.load(file)
        release, device, values = self.read(self.project)
        self.assertEqual(release, "0.1.0")
        self.assertEqual(device["Architecture"], "Arkeon")
        self.assertTrue(sheet["part"].startswith(device["Device"]), device)
        self.assertEqual(device["Process"], sheet["process"].title())
        names = [value for (tab, table, _, tag), value in values.items()
                 if (tab, table, tag) == ("CLOCK", "ClockConfiguration", "Name")]
        self.assertEqual(names, [clock["name"] for clock in sheet["clock"]])
        frequencies = [value for (tab, table, _, tag), value in values.items()
                       if (tab, table, tag) == ("CLOCK", "ClockConfiguration", "ClockFrequency")]
        self.assertEqual(len(frequencies), len(names))
        self.assertTrue(all(float(frequency) > 0 for frequency in frequencies))

    def test_refuses_a_changed_byte(self):
        with open(self.project, "rb") as file:
            data = bytearray(file.read())
        for at in (0, len(data) // 2, len(data) - 80, len(data) - 70, len(data) - 1):
            changed = data.copy()
            changed[at] ^= 1
            with open(self.project, "wb") as file:
                file.write(changed)
            with self.assertRaisesRegex(ValueError, "digest"):
                self.read(self.project)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
