# SPDX-License-Identifier: MIT
"""Whether man page, completions, help and JSON Schema name every verb, option, key and exit code.

What there is, nuboctl itself says: by "help --json" and "describe --json".
"""

import json
import pathlib
import re
import subprocess
import sys
import unittest

NUBOCTL, DOCS = sys.argv[1:3]
del sys.argv[1:3]

MAN_PAGE = pathlib.Path(DOCS, "man", "nuboctl.1")
SCHEMA = json.loads(pathlib.Path(DOCS, "nuboctl.schema.json").read_text(encoding="utf-8"))


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=60).stdout


OVERVIEW = json.loads(run(NUBOCTL, "help", "--json"))["help"]
VERBS = {verb["verb"]: verb for verb in OVERVIEW["verbs"]}
COMMON_OPTIONS = OVERVIEW["options"]
SETTINGS = {row["key"]: row for row in json.loads(run(NUBOCTL, "describe", "--json"))["descriptions"]}
EXIT_CODES = OVERVIEW["exitCodes"]


def names(options):
    return {option["name"] for option in options}


def short_names(options):
    return {option["short"] for option in options if option["short"]}


def words_behind(verb):
    """What may stand behind a verb word by word: its options, and keys where it takes them."""
    keys = set()
    if "KEY" in verb["usage"]:
        keys = {f"{key}=" for key, row in SETTINGS.items() if row["writable"]} if verb["verb"] == "set" else set(SETTINGS)
    actions = set(re.findall(r"(?<![\w.=])[a-z]+(?![\w.=])", verb["usage"]))
    return keys | actions | names(verb["options"]) | names(COMMON_OPTIONS)


class CompletenessTest(unittest.TestCase):
    def test_there_is_something_to_compare(self):
        self.assertIn("set", VERBS)
        self.assertIn("--json", names(COMMON_OPTIONS))
        self.assertIn("wifi.infrastructure.ssid", SETTINGS)
        self.assertIn(130, [end["exit"] for end in EXIT_CODES])
        self.assertIn("image.contrast=", words_behind(VERBS["set"]))
        self.assertLessEqual({"scan", "join", "--static"}, words_behind(VERBS["wifi"]))

    def test_help_names_all(self):
        overview = run(NUBOCTL, "help")
        for verb in VERBS:
            self.assertRegex(overview, rf"(?m)^  {verb}( |$)")
            text = run(NUBOCTL, "help", verb)
            for name in names(VERBS[verb]["options"]) | names(COMMON_OPTIONS):
                self.assertRegex(text, rf"(?m)^  (-\w, )?{name}\b", verb)
        for name in names(COMMON_OPTIONS) | short_names(COMMON_OPTIONS):
            self.assertRegex(overview, rf"(?m)^  .*{name}\b")
        for end in EXIT_CODES:
            self.assertRegex(overview, rf"(?m)^  {end['exit']} +{end['explanation']}$")
        described = run(NUBOCTL, "describe")
        for key in SETTINGS:
            self.assertRegex(described, rf"(?m)^{re.escape(key)}$")


class ManPageTest(unittest.TestCase):
    source = MAN_PAGE.read_text(encoding="utf-8")
    page = " ".join(re.sub(".\b", "", run("mandoc", "-T", "utf8", str(MAN_PAGE))).split())

    def items(self, section):
        """The lines that begin an item of a section."""
        text = self.source.split(f".Sh {section}\n")[1].split("\n.Sh ")[0]
        return re.findall(r"(?m)^\.It (.*)$", text)

    def test_it_is_clean(self):
        ended = subprocess.run(["mandoc", "-T", "lint", MAN_PAGE], capture_output=True, text=True)
        self.assertEqual(ended.stdout + ended.stderr, "")

    def test_it_has_every_verb_with_its_options_and_no_other(self):
        items = [item.split() for item in self.items("VERBS")]
        self.assertEqual({words[1] for words in items}, set(VERBS))
        for verb in VERBS:
            options = {
                f"-{word}"
                for words in items
                if words[1] == verb
                for word in words
                if re.fullmatch(r"-[a-z-]+", word)
            }
            self.assertEqual(options, names(VERBS[verb]["options"]), verb)

    def test_it_has_every_option_of_all_verbs(self):
        items = " ".join(self.items("DESCRIPTION"))
        told = {f"-{name}" for name in re.findall(r"Fl (-?[a-z-]+)", items)}
        self.assertEqual(told, names(COMMON_OPTIONS) | short_names(COMMON_OPTIONS))

    def test_it_has_every_key_with_what_it_may_be(self):
        self.assertEqual({item.removeprefix("Cm ") for item in self.items("SETTINGS")}, set(SETTINGS))
        for key, row in SETTINGS.items():
            told = self.page.split(f" {key} ")[1][:200]
            self.assertIn(row["explanation"][1:], told)
            self.assertIn(row.get("allowed", ""), told)

    def test_it_has_every_exit_code(self):
        self.assertEqual(
            [int(item) for item in self.items("EXIT STATUS")], [end["exit"] for end in EXIT_CODES]
        )


class CompletionsTest(unittest.TestCase):
    def completed(self, *words):
        """What bash offers for the last of words."""
        line = " ".join(f"'{word}'" for word in ("nuboctl", *words))
        script = f"""
            compopt() {{ :; }}
            source <("$0" completion bash)
            COMP_WORDS=({line}); COMP_CWORD={len(words)}
            _nuboctl
            printf '%s\\n' "${{COMPREPLY[@]}}"
        """
        return set(run("bash", "-c", script, NUBOCTL).split())

    def test_bash_offers_all(self):
        self.assertEqual(self.completed(""), set(VERBS) | names(COMMON_OPTIONS))
        for verb in VERBS.values():
            offered = self.completed(verb["verb"], "")
            self.assertLessEqual(words_behind(verb), offered, verb["verb"])
        self.assertEqual(self.completed("-c", "1-2", "mon"), {"monitor"})
        self.assertEqual(self.completed("set", "camera.na"), {"camera.name="})

    def test_bash_offers_all_behind_words_that_it_has_split(self):
        for split in (
            ("--camera", "=", "SIM0001"),
            ("-c", "1", ":", "2"),
            ("--wait", "=", "5"),
            ("--camera", "=", "get"),
        ):
            self.assertEqual(self.completed(*split, "mon"), {"monitor"}, split)
            self.assertEqual(self.completed(*split, "wifi", "sc"), {"scan"}, split)

    def test_zsh_offers_all(self):
        script = run(NUBOCTL, "completion", "zsh")
        cases = dict(re.findall(r"""(?m)^ +([\w'-]+)\) candidates="(.*)" ;;$""", script))
        self.assertEqual(set(cases.pop("''").split()), set(VERBS) | names(COMMON_OPTIONS))
        self.assertEqual(set(cases), set(VERBS))
        for verb, candidates in cases.items():
            self.assertLessEqual(words_behind(VERBS[verb]), set(candidates.split()), verb)

    def test_fish_offers_all(self):
        lines = run(NUBOCTL, "completion", "fish").splitlines()
        for option in COMMON_OPTIONS:
            found = [line for line in lines if f" -l {option['name'][2:]} " in line and " -n " not in line]
            self.assertEqual(len(found), 1, option)
            self.assertIn(f" -s {option['short'][1:]}" if option["short"] else "", found[0])
        for verb in VERBS.values():
            self.assertTrue(any(f" -a {verb['verb']} " in line for line in lines), verb)
            own = " ".join(line for line in lines if f"seen_subcommand_from {verb['verb']}'" in line)
            words = words_behind(verb) - names(COMMON_OPTIONS)
            offered = set(re.sub(r"-l (?=\w)", "--", own).replace("'", " ").split())
            self.assertLessEqual(words, offered, verb["verb"])

    def test_a_key_and_a_verb_are_all_that_help_takes(self):
        self.assertLessEqual(set(SETTINGS) | set(VERBS), self.completed("help", ""))


class SchemaTest(unittest.TestCase):
    parts = SCHEMA["$defs"]

    def test_it_has_every_verb_and_exit_code(self):
        self.assertEqual({name for name in self.parts if name[0].islower()}, set(VERBS))
        error = self.parts["Error"]["properties"]
        failures = [end for end in EXIT_CODES if end["exit"] != 0]
        self.assertEqual(error["exit"]["enum"], [end["exit"] for end in failures])
        self.assertEqual(error["kind"]["enum"], [end["kind"] for end in failures])

    def test_it_has_every_key_with_its_kind_and_its_choices(self):
        types = {"switch": "boolean", "text": "string"}
        types |= dict.fromkeys(("number", "duration", "capacity"), "integer")
        parts = {"address": "Address", "netmask": "Address", "time zone": "TimeZone", "clock": "Clock"}
        properties = self.parts["Settings"]["properties"]
        self.assertEqual(set(properties), set(SETTINGS))
        for key, row in SETTINGS.items():
            with self.subTest(key=key):
                told = properties[key]
                if row["kind"] == "choice":
                    choices = told.get("enum") or told["anyOf"][0]["enum"]
                    named = [str(choice) for choice in choices if choice != "unknown"]
                    self.assertEqual(named, row["choices"])
                elif row["kind"] in types:
                    self.assertEqual(told["type"], types[row["kind"]])
                else:
                    self.assertEqual(told["$ref"], f"#/$defs/{parts[row['kind']]}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
