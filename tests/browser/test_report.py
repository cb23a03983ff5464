"""What `gattr report` writes, in a real browser: each test does what a person would do and looks at what is seen."""
import json
import os
import random
import subprocess
import re
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from browser import Browser, Page  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
GATTR = os.environ.get("GATTR_PROGRAM", os.path.join(ROOT, "build/release/bin/gattr"))
HOSTILE = ["</script><img src=x onerror=hit()>", "<!--<script>hit()", "\"'><svg onload=hit()>", "a\u2028b\u202ec", "]]>&lt;&amp;", "Stößel 冲头 🔩",
           "{{hit()}}${hit()}", "</noscript><script>hit()</script>", "javascript:hit()"]


def run(*arguments, **options):
    return subprocess.run([GATTR, *map(str, arguments)], check=True, capture_output=True, text=True, **options).stdout


class Model:
    """A model made of commands, or of an example's journal, and its report."""

    def __init__(self, name, commands=None):
        self.path, self.page = os.path.join(folder.name, name + ".gadb"), os.path.join(folder.name, name + ".html")
        if commands is None:
            journal = os.path.join(ROOT, "examples", name + ".jsonl")
        else:
            journal = os.path.join(folder.name, name + ".jsonl")
            with open(journal, "w", encoding="utf-8") as out:
                out.writelines(json.dumps(command) + "\n" for command in commands)
        run("replay", journal, "-o", self.path)
        run("report", self.path)
        self.history = json.loads(run("history", self.path, "--format", "json"))
        self.steps = [step["name"] for step in self.history["steps"]]
        self.names = [row["name"] for row in self.history["attributes"]]


def wide_commands():
    """Five hundred conditions by sixty steps, each changed and switched off somewhere."""
    random_ = random.Random(4711)
    yield {"command": "Set", "name": "S"}
    for i in range(1, 61):
        yield {"command": "StaticStep", "name": f"Step-{i}", "initialInc": 0.1}
    for i in range(500):
        create = random_.randint(1, 30)
        name = f"C-{i:03}"
        yield {"command": "DisplacementBC", "name": name, "createStepName": f"Step-{create}", "region": "S", "u1": i + 0.5, "u2": 1.0}
        yield {"command": "setValuesInStep", "boundaryCondition": name, "stepName": f"Step-{create + random_.randint(1, 9)}", "u1": -2.0}
        yield {"command": "deactivate", "boundaryCondition": name, "stepName": f"Step-{create + random_.randint(10, 29)}"}


def hostile_commands():
    yield {"command": "Set", "name": HOSTILE[0]}
    yield {"command": "setModel", "name": HOSTILE[0]}
    for name in HOSTILE:
        yield {"command": "StaticStep", "name": name, "initialInc": 0.1, "description": HOSTILE[0]}
        yield {"command": "DisplacementBC", "name": name, "createStepName": name, "region": HOSTILE[0], "u1": 1.0}
    yield {"command": "DisplacementBC", "name": "twice" + HOSTILE[0], "createStepName": HOSTILE[0], "region": HOSTILE[0], "u1": 2.0}


def setUpModule():
    global folder, browser, forming, modes, wide
    folder = tempfile.TemporaryDirectory(prefix="gattr-report-")
    browser = Browser()
    forming, modes, wide = Model("forming"), Model("prestressed_modes"), Model("wide", wide_commands())


def tearDownModule():
    browser.close()
    folder.cleanup()


# what a person sees of the table: name and words or signs of each row, from top to bottom
SEEN = """[...document.querySelectorAll('#sizer > .row:not(.head)')]
  .sort((a, b) => a.getAttribute('aria-rowindex') - b.getAttribute('aria-rowindex'))
  .map(row => [row.querySelector('.name').textContent, ...[...row.querySelectorAll('.cell')].flatMap(
    cell => Array(Number(cell.ariaColSpan)).fill(cell.ariaLabel))])"""
TITLES = "[...document.querySelectorAll('#panel svg path title')].map(title => title.textContent)"
COUNT = "document.getElementById('count').textContent"
PANEL = "document.getElementById('panel').hidden ? null : document.getElementById('panel').innerText"
VALUES = """Object.fromEntries([...document.querySelectorAll('#cell-values tbody tr')].map(
  row => [row.cells[0].textContent, [row.cells[1].textContent, row.cells[2].textContent]]))"""


class Report(unittest.TestCase):
    def page(self, model, **options):
        page = Page(browser, model.page, **options)
        self.addCleanup(page.close)
        return page

    def words(self, page):
        return [word for word, *_ in page.run("JSON.parse(document.getElementById('data').textContent).words")]

    def expect_rows(self, page, attributes, steps):
        """That the table shows these attributes of forming, all their cells with it, and says so."""
        words = self.words(page)
        wanted = [[row["name"], *(words[row["history"][step]] for step in steps)] for row in attributes]
        self.assertEqual(page.run(SEEN), wanted)
        of = "" if len(attributes) == len(forming.names) else f" of {len(forming.names)}"
        self.assertTrue(page.run(COUNT).startswith(f"{len(attributes)}{of} attributes"), page.run(COUNT))

    def test_shows_every_status_that_the_history_tells(self):
        for model in (forming, modes):
            page = self.page(model, width=2400, height=1400)
            words = self.words(page)
            self.assertEqual(page.run(SEEN), [[row["name"], *(words[status] for status in row["history"])] for row in model.history["attributes"]])
            self.assertEqual(page.run("[...document.querySelectorAll('.head .cell b')].map(cell => cell.textContent)"), model.steps)
            self.assertEqual(page.run("violations"), [])

    def test_filters_by_name_kind_type_status_steps_and_changes(self):
        page = self.page(forming, width=2000)
        all_, steps = forming.history["attributes"], range(len(forming.steps))
        choose = "(([label, value]) => {{ const e = [...document.querySelectorAll('#filters label')].find(l => l.firstChild.textContent === label)" \
                 ".querySelector('select'); e.value = value; e.dispatchEvent(new Event('change')); }})({})"

        page.click("#name-filter")
        page.type("PUN")
        self.expect_rows(page, [row for row in all_ if "pun" in row["name"].lower()], steps)
        page.run("(e => { e.value = ''; e.dispatchEvent(new Event('input')); })(document.getElementById('name-filter'))")
        page.type("s*-?")
        self.expect_rows(page, [row for row in all_ if row["name"].startswith("Symmetry-")], steps)
        page.run("(e => { e.value = ''; e.dispatchEvent(new Event('input')); })(document.getElementById('name-filter'))")

        kind = all_[-1]["kind"]
        page.run(choose.format(json.dumps(["kind", kind])))
        self.expect_rows(page, [row for row in all_ if row["kind"] == kind], steps)
        page.run(choose.format('["kind", ""]'))
        page.run(choose.format('["type", "DisplacementBC"]'))
        self.expect_rows(page, [row for row in all_ if row["type"] == "DisplacementBC"], steps)
        page.run(choose.format('["type", ""]'))

        page.run("[...document.querySelectorAll('#legend button')].find(b => b.innerText.endsWith('base modified')).click()")
        self.expect_rows(page, [row for row in all_ if 10 in row["history"]], steps)
        page.run(choose.format('["steps", "3"]'))  # in the steps that are shown
        self.expect_rows(page, [], range(3, len(forming.steps)))
        page.run("[...document.querySelectorAll('#legend button')].find(b => b.innerText.endsWith('base modified')).click()")
        page.run(choose.format('["to", "5"]'))
        self.expect_rows(page, all_, range(3, 6))

        page.click("#changes")
        own = {1, 3, 4, 10}
        changed = [row for row in all_ if own & set(row["history"][3:6])]
        said = [step for step in range(3, 6) if any(row["history"][step] in own for row in all_)]
        self.expect_rows(page, changed, said)
        blanks = sum(row["history"][step] not in own for row in changed for step in said)
        self.assertGreater(blanks, 0)
        self.assertEqual(page.run("[...document.querySelectorAll('.cell[role=gridcell]')].filter(cell => cell.textContent === '')"
                                  ".reduce((sum, cell) => sum + Number(cell.ariaColSpan), 0)"), blanks)

    def test_a_cell_opens_its_values_and_the_steps_that_set_them(self):
        model = Model("origins", [
            {"command": "Set", "name": "S"},
            {"command": "StaticStep", "name": "Press", "initialInc": 0.1},
            {"command": "FrequencyStep", "name": "Modes", "numEigen": 10},
            {"command": "StaticStep", "name": "Form", "initialInc": 0.1},
            {"command": "DisplacementBC", "name": "Punch", "createStepName": "Press", "region": "S", "u1": 0.0, "u2": -10.0, "ur1": 0.5},
            {"command": "setValuesInStep", "boundaryCondition": "Punch", "stepName": "Form", "u2": -12.5, "ur1": "FREED"},
            {"command": "StaticStep", "name": "Hold", "initialInc": 0.1},
            {"command": "StaticStep", "name": "Off", "initialInc": 0.1},
            {"command": "deactivate", "boundaryCondition": "Punch", "stepName": "Off"},
        ])
        page = self.page(model)
        press = {"u1": ["0", "set here"], "u2": ["-10", "set here"], "ur1": ["0.5", "set here"]}
        carried = {member: [value, "Press"] for member, (value, _) in press.items()}
        form = {"u1": ["0", "Press"], "u2": ["-12.5", "set here"], "ur1": ["freed", "set here"]}
        hold = {"u1": ["0", "Press"], "u2": ["-12.5", "Form"], "ur1": ["freed", "Form"]}
        page.press("ArrowRight", "Enter")
        seen = []
        for _ in model.steps:
            seen.append(page.run(VALUES))
            page.press("ArrowRight")
        self.assertEqual(seen[:5], [{}, press, carried, form, hold])
        self.assertIn("Not in force here", page.run(PANEL))
        u2 = [f"u2 {value} in {step}" for value, step in
              [("-10", "Press"), ("-10", "Modes"), ("-12.5", "Form"), ("-12.5", "Hold"), ("-12.5", "Off")]]
        self.assertEqual(page.run(TITLES), [*u2, "ur1 0.5 in Press", "ur1 0.5 in Modes"])  # u1 is 0 throughout
        for name in ("u1", "ur1"):
            page.run(f"[...document.querySelectorAll('#panel .choices button')].find(b => b.textContent === '{name}').click()")
        self.assertEqual(page.run(TITLES), [f"u1 0 in {step}" for step in model.steps[1:]] + u2)

    def test_every_cell_has_the_values_and_origins_that_show_tells(self):
        seen_values = 0
        for model in (forming, modes, Model("fire"), Model("crash_box"), Model("rotor")):
            page = self.page(model)
            page.press("Enter", "Home")
            cells = page.run(f"""(() => {{ const all = []; const press = key => grid.dispatchEvent(new KeyboardEvent('keydown', {{key}}));
              for (let row = 0; row < {len(model.names)}; ++row) {{
                press('Home'); all.push([]);
                for (let step = 0; step < {len(model.steps)}; ++step) {{ all[row].push({VALUES}); press('ArrowRight'); }}
                press('ArrowDown');
              }} return all; }})()""")
            for row, seen in zip(model.history["attributes"], cells):
                told = json.loads(run("show", model.path, f"{row['kind']}:{row['name']}", "--format", "json"))
                for step, shown in zip(told["steps"], seen):
                    wanted = {name: member for name, member in step["members"].items() if member["standing"] in ("set", "freed")}
                    self.assertEqual(set(shown), set(wanted), (row["name"], step["step"]))
                    for name, member in wanted.items():
                        value, origin = shown[name]
                        self.assertEqual(origin, "set here" if member["own"] else member["step"], (row["name"], step["step"], name))
                        if isinstance(member["value"], float):
                            self.assertEqual(float(value), member["value"], (row["name"], step["step"], name))
                        elif isinstance(member["value"], str) or member["standing"] == "freed":
                            self.assertEqual(value, member["value"] or "freed", (row["name"], step["step"], name))
                        seen_values += 1
        self.assertGreater(seen_values, 300)

    def test_a_plot_follows_the_curve_of_the_amplitude(self):
        model = Model("curve", [
            {"command": "Set", "name": "S"},
            {"command": "SmoothStepAmplitude", "name": "Smooth", "points": [[0, 0], [1, 1]]},
            {"command": "StaticStep", "name": "Press", "initialInc": 0.1},
            {"command": "StaticStep", "name": "Slow", "initialInc": 0.1, "timePeriod": 4.0},
            {"command": "DisplacementBC", "name": "Punch", "createStepName": "Press", "region": "S", "u2": -10.0, "amplitude": "Smooth"},
        ])
        page = self.page(model)
        page.press("Enter")
        self.assertEqual(page.run(TITLES), ["u2 -10 by its amplitude in Press", "u2 -10 by its amplitude in Slow"])
        axis = {text: y for text, y in page.run("[...document.querySelectorAll('#panel svg line[x2=\"392\"] + text')].map(t => [t.textContent, t.getAttribute('y') - 3])")}
        scale = (axis["-10"] - axis["0"]) / -10
        for part, (begin, period) in enumerate([(1, 1.0), (2, 4.0)]):
            path = page.run(f"document.querySelectorAll('#panel svg path')[{part}].getAttribute('d')")
            points = [tuple(map(float, point.split())) for point in path[1:].split("L")]
            at = [((x - 52) / 340 * 3 - begin, (y - axis["0"]) / scale) for x, y in points]
            self.assertGreater(len(at), 10)
            for share, value in at:
                time = min(1.0, max(0.0, share * period))
                self.assertAlmostEqual(value, -10 * time ** 3 * (10 - 15 * time + 6 * time ** 2), delta=0.2, msg=f"at {share} of step {begin}")

    def test_keys_move_open_close_and_filter(self):
        page = self.page(wide)
        labels = self.words(page)
        page.press("ArrowDown", "ArrowDown", "ArrowRight", "End")
        active = "(c => [c.closest('.row').querySelector('.name').textContent, c.getAttribute('aria-colindex')])(" \
                 "document.getElementById(grid.getAttribute('aria-activedescendant')))"
        self.assertEqual(page.run(active), [wide.names[2], str(len(wide.steps) + 2)])
        box = page.run("(b => [b.left, b.right, innerWidth])(cursor.getBoundingClientRect())")
        self.assertTrue(420 <= box[0] and box[1] <= box[2], f"the active cell is out of sight: {box}")
        self.assertEqual(page.run("document.getElementById('told').textContent"),
                         f"{wide.names[2]} in Step-60: {labels[wide.history['attributes'][2]['history'][60]]}")
        self.assertIsNone(page.run(PANEL))
        page.press("Enter")
        self.assertIn(wide.names[2], page.run(PANEL))
        page.press("ArrowDown")
        self.assertIn(wide.names[3], page.run(PANEL))
        page.press("Escape")
        self.assertIsNone(page.run(PANEL))
        self.assertEqual(page.run("document.activeElement.id"), "grid")
        page.press("/")
        self.assertEqual(page.run("document.activeElement.id"), "name-filter")
        page.type("C-4")
        page.press("Enter")
        self.assertEqual(page.run(active)[0], "C-400")
        self.assertEqual(page.run("document.activeElement.id"), "grid")

    def test_draws_what_is_seen_and_nothing_else(self):
        page = self.page(wide)
        words = self.words(page)
        random_ = random.Random(7)
        for _ in range(12):
            down, right = random_.random(), random_.random()
            page.run(f"(g => {{ g.scrollTop = (g.scrollHeight - g.clientHeight) * {down}; g.scrollLeft = (g.scrollWidth - g.clientWidth) * {right}; }})(grid)")
            page.settle()
            cells = page.run("""(() => { const top = document.querySelector('.head').getBoundingClientRect().bottom, box = grid.getBoundingClientRect();
              const seen = [];
              for (let y = top + 5; y < box.bottom; y += 90) for (let x = box.left + 430; x < box.right; x += 170) {
                const cell = document.elementFromPoint(x, y).closest('.cell'); const row = cell?.closest('.row');
                if (row) seen.push([row.querySelector('.name').textContent, cell.ariaColIndex - 3 + Math.floor((x - cell.getBoundingClientRect().left) / 26), cell.ariaLabel]);
              } return seen; })()""")
            self.assertGreater(len(cells), 20)
            for name, step, word in cells:
                self.assertEqual(words[wide.history["attributes"][wide.names.index(name)]["history"][step]], word, (name, step))
            self.assertLess(page.run("document.querySelectorAll('.cell').length"), 3000)

    def test_names_never_act_and_no_request_leaves(self):
        model = Model("hostile", hostile_commands())
        page = self.page(model)
        for _ in range(3):
            page.press("ArrowDown", "ArrowRight", "Enter")
        for tab in ("steps", "findings", "histories"):
            page.click(f"#tab-{tab}")
        page.click("#tab-findings")
        page.click("#findings tbody tr")
        names = page.run("[...document.querySelectorAll('#sizer > .row:not(.head) .name')].map(name => name.textContent)")
        self.assertEqual(sorted(names), sorted(name.replace("\u2028", "\\u2028").replace("\u202e", "\\u202e") for name in model.names))
        self.assertEqual(page.run("[document.images.length, document.scripts.length, document.querySelectorAll('main svg [onload], [onerror]').length]"), [0, 2, 0])
        self.assertEqual(page.run("[typeof hit, violations]"), ["undefined", []])
        self.assertEqual([failed for failed in page.told("Runtime.exceptionThrown")], [])
        self.assertEqual([told["entry"]["text"] for told in page.told("Log.entryAdded")], [])
        self.assertEqual({request["request"]["url"] for request in page.told("Network.requestWillBeSent")}, {"file://" + model.page})

        plain = self.page(model, script=False)
        text = plain.call("DOMSnapshot.captureSnapshot", computedStyles=[])["strings"]
        self.assertIn(HOSTILE[0], " ".join(text))
        self.assertNotIn("IMG", text)
        self.assertEqual({request["request"]["url"] for request in plain.told("Network.requestWillBeSent")}, {"file://" + model.page})

    def test_a_finding_opens_its_attribute(self):
        page = self.page(wide)
        told = json.loads(subprocess.run([GATTR, "check", wide.path, "--format", "json"], capture_output=True, text=True).stdout)
        said = [f"{one['message']} {one['detail']} {one['hint']}".split() for one in told]
        place = next(i for i in range(1, len(said)) if (told[i]["id"], said[i]) in [(told[k]["id"], said[k]) for k in range(i)])  # "the same"
        page.click("#tab-findings")
        last = max(i for i, one in enumerate(told) if one["kind"] != "step")
        for i in (0, place, last):
            page.run(f"document.querySelectorAll('#findings tbody tr')[{i}].click()")
            panel = page.run(PANEL)
            self.assertEqual(panel.split("\n")[0], told[i]["name"])
            self.assertIn(" ".join(said[i]), " ".join(panel.split()))
            self.assertEqual(page.run("document.getElementById(grid.getAttribute('aria-activedescendant')).ariaLabel").split(":")[0], told[i]["step"])

    def test_the_policy_stops_what_a_page_would_do(self):
        page = self.page(forming)
        page.run("""(async () => {
          const script = document.createElement('script'); script.textContent = 'window.ran = true'; document.body.append(script);
          document.body.insertAdjacentHTML('beforeend', '<b id=styled style="color: red">x</b><img src="http://127.0.0.1:9/x.png">');
          await fetch('http://127.0.0.1:9/').catch(() => {});
          await new Promise(done => setTimeout(done, 100)); })()""")
        self.assertEqual(set(page.run("violations")), {"script-src-elem", "style-src-attr", "img-src", "connect-src"})
        self.assertEqual(page.run("typeof ran"), "undefined")
        asked = {told["requestId"] for told in page.told("Network.requestWillBeSent") if told["request"]["url"].startswith("http")}
        blocked = {told["requestId"] for told in page.told("Network.loadingFailed") if told.get("blockedReason") == "csp"}
        self.assertLessEqual(asked, blocked)

    def test_without_script_it_shows_steps_findings_and_a_sign_per_step(self):
        model = Model("plain", [*list(hostile_commands())[:2], {"command": "StaticStep", "name": "Press", "initialInc": 0.25},
                                {"command": "DisplacementBC", "name": "Open", "createStepName": "Press"}])
        for shown in (forming, model):
            page = self.page(shown, script=False)
            browser_text = self.text_of(page)
            lines = [line.rstrip() for line in run("history", shown.path, "--compact", "--width", "0").splitlines()]
            for line in lines[1:lines.index("")]:
                name, _, signs = line.partition("  ")
                self.assertRegex(browser_text, "(?m)^" + "\\s+".join(map(re.escape, line.split())), f"{name} is not there with {signs}")
            for step in shown.steps:
                self.assertIn(step, browser_text)
        self.assertRegex(browser_text, "initialInc\\s+0.25")
        for finding in json.loads(subprocess.run([GATTR, "check", model.path, "--format", "json"], capture_output=True, text=True).stdout):
            self.assertRegex(browser_text, f"{finding['id']}\\s+{finding['severity']}")
            self.assertIn(finding["hint"], browser_text)

    def text_of(self, page):
        """What is seen of a page in which no script may run: the texts of the boxes that are laid out, line by line."""
        snapshot = page.call("DOMSnapshot.captureSnapshot", computedStyles=[])
        strings, layout = snapshot["strings"], snapshot["documents"][0]["layout"]
        return "\n".join(strings[text] for text in layout["text"] if text >= 0)

    def test_prints_the_filtered_rows(self):
        page = self.page(wide)
        page.click("#name-filter")
        page.type("C-12")
        page.run("""addEventListener('beforeprint', () => { window.printed = [
          [...document.querySelectorAll('#print tbody tr')].map(row => [row.cells[0].textContent, row.cells[2].textContent.replaceAll(' ', '').length]),
          ['grid', 'filters', 'print'].map(id => getComputedStyle(document.getElementById(id)).display)]; })""")
        page.call("Emulation.setEmulatedMedia", media="print")
        self.assertGreater(len(page.call("Page.printToPDF")["data"]), 10000)
        rows, displays = page.run("printed")
        self.assertEqual(rows, [[name, len(wide.steps)] for name in wide.names if name.startswith("C-12")])
        self.assertEqual([displays[1], displays[2]], ["none", "block"])
        self.assertFalse(page.run("document.getElementById('table').checkVisibility()"))

    def test_tells_a_screen_reader_what_is_where(self):
        page = self.page(wide)
        findings = len(json.loads(subprocess.run([GATTR, "check", wide.path, "--format", "json"], capture_output=True, text=True).stdout))
        page.press("ArrowDown", "ArrowRight")
        page.call("Accessibility.enable")
        nodes = page.call("Accessibility.getFullAXTree")["nodes"]
        by_role = {}
        for node in nodes:
            if not node.get("ignored"):
                by_role.setdefault(node["role"]["value"], []).append(node)
        self.assertEqual([node["name"]["value"] for node in by_role["grid"]], ["Histories: attributes by steps"])
        self.assertEqual(page.run("[grid.ariaRowCount, grid.ariaColCount]"), [str(len(wide.names) + 1), str(len(wide.steps) + 2)])
        self.assertIn(wide.names[1], {node["name"]["value"] for node in by_role["rowheader"]})
        self.assertTrue({"created", "not yet created"} <= {node["name"]["value"] for node in by_role["gridcell"]})
        self.assertEqual({node["name"]["value"] for node in by_role["tab"]}, {"Histories", "Steps", f"Findings ({findings})"})
        for role in ("combobox", "searchbox", "checkbox", "button"):
            for node in by_role[role]:
                self.assertTrue(node["name"]["value"], f"a {role} has no name")
        self.assertEqual(page.run("document.getElementById(grid.getAttribute('aria-activedescendant')).getAttribute('aria-label')"), "Initial: not yet created")

    def test_follows_the_colours_that_a_person_prefers(self):
        colours = [self.page(forming, dark=dark).run("getComputedStyle(document.body).backgroundColor") for dark in (False, True)]
        self.assertEqual(colours[0], "rgb(255, 255, 255)")
        self.assertLess(max(map(int, colours[1][4:-1].split(","))), 50)


if __name__ == "__main__":
    program = unittest.main(exit=False)
    if not program.result.wasSuccessful():
        sys.exit(1)
    print(f"{program.result.testsRun} browser tests passed")
