#!/usr/bin/env python3
"""The report in a real headless Chromium: what it shows is held against the tables that it
was made from; search, filters, drawings, downloads and keyboard are driven as by a user.

    report_in_browser.py NETORIENT-TOOLS EXAMPLE-FOLDER WORK-FOLDER
"""

import json
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "support/python"))
from written_tables import (HARD_NAMES, NOT_THERE, open_arc, orient, read_rows, require_package, run,
                            shortest_path_arcs, write_hard_network)

require_package("selenium")
from browser import Page

INTERACTION_COLUMNS = "first second file line confidence direction pairs regret_min regret_max status".split()


def make_report(program, network, folder):
    orient(program, network, folder)
    run(program, "evaluate", f"{network}/", f"{folder}/")
    found = subprocess.run([program, "check", f"{network}/", "--json"], capture_output=True)
    (folder / "check.json").write_bytes(found.stdout)
    made = subprocess.run([program, "report", folder], capture_output=True, text=True)
    if "built without the scripts" in made.stderr:
        print(made.stderr)
        sys.exit(NOT_THERE)
    assert made.returncode == 0, made.stderr
    return folder / "report.html"


def drawn_arcs(page, place):
    """The arcs of a drawing: from, to, and how it is drawn."""
    return {(tail, head): classes for tail, head, classes in page.script(f"""
        const graph = document.getElementById("{place}").graph;
        return graph.edges().map((edge) =>
            [edge.source().data("label"), edge.target().data("label"), edge.classes()]);""")}


def shown_facts(page, place):
    terms = page.texts(f"#{place} dt")
    return dict(zip(terms, page.texts(f"#{place} dd")))


def check_summary(page, pairs, interactions, folder):
    explained = sum(pair["status"] == "explained" for pair in pairs)
    with_path = explained + sum(pair["status"] == "lost" for pair in pairs)
    assert page.text("h1") == f"{explained} of {with_path} knockout pairs with a path are explained"
    assert page.text("#proof") == "Proven: no choice of directions explains more."
    figures = page.text("#figures")
    decided = sum(row["status"] == "decided" for row in interactions)
    assert f"Directions decided\n{decided}\n" in figures, figures
    share = json.loads((folder / "evaluation.json").read_text())["all"]["share"]
    assert f"{round(100 * share)} % right" in figures, figures


def check_pairs(page, pairs, interactions):
    """Every status: what is said of a pair, and its drawing against all its shortest paths."""
    opened = {arc: row for row in interactions if (arc := open_arc(row))}
    as_read = {(row["first"], row["second"]) for row in interactions}
    as_read |= {(row["second"], row["first"]) for row in interactions if row["file"] != "directed"}
    num_drawn = 0
    for status in ("explained", "lost", "unreachable"):
        page.choose("pair-status", status)
        wanted = [pair for pair in pairs if pair["status"] == status]
        assert page.text("#pair-table .pager span").endswith(f"of {len(wanted)}")
        for pair in wanted[::max(1, len(wanted) // 6)]:
            page.search("pair-cause", pair["cause"])
            page.search("pair-effect", pair["effect"])
            page.pick("pair-table", [pair["cause"], pair["effect"], status])
            assert page.text("#pair-name") == f"{pair['cause']} → {pair['effect']}"
            facts = shown_facts(page, "pair-facts")
            assert facts["Status"] == status and facts["Line in ko"] == pair["line"]
            if status == "unreachable":
                assert page.is_hidden("#pair-drawing") and facts["Why"]
                continue
            drawn = drawn_arcs(page, "pair-drawing")
            num_drawn += 1
            paths = shortest_path_arcs(opened if status == "explained" else as_read, pair)
            assert drawn.keys() == set().union(*paths), (pair, drawn, paths)
            turned = {arc for arc, classes in drawn.items() if "lost" in classes}
            assert turned == {arc for arc in drawn if arc not in opened and arc[::-1] in opened}
            for arc in drawn.keys() & opened.keys():
                assert {opened[arc]["status"], opened[arc]["file"]} == set(drawn[arc])
            if status == "lost":
                assert facts["Price"].startswith(pair["price_min"]) and facts["Would give up"]
                fewest = min(len(path & turned) for path in paths)
                assert f"In its way: {fewest} interaction" in page.text("#pair-facts"), (pair, fewest)
        page.search("pair-cause", "")
        page.search("pair-effect", "")
    page.choose("pair-status", "")
    return num_drawn


def check_interactions(page, interactions, downloads):
    def shown():
        page.click("#interaction-download")
        rows = read_rows(downloads.taken("interactions-selected.tsv"))
        assert not rows or list(rows[0]) == INTERACTION_COLUMNS
        return rows

    as_set = lambda rows: {tuple(row[key] for key in INTERACTION_COLUMNS) for row in rows}
    assert as_set(shown()) == as_set(interactions)
    page.choose("interaction-status", "decided")
    page.choose("interaction-regret", "2")
    between = [row for row in interactions if row["status"] == "decided" and row["regret_min"] in ("2", "3")]
    assert between and as_set(shown()) == as_set(between)
    page.choose("interaction-file", "test")
    page.search("interaction-protein", "ste")
    assert as_set(shown()) == as_set(row for row in between if row["file"] == "test" and
                                     "STE" in row["first"] + " " + row["second"])
    for field in ("status", "regret", "file"):
        page.choose(f"interaction-{field}", "")
    page.search("interaction-protein", "")

    page.click("#interaction-table th:nth-child(5) button")  # regret, largest first
    regrets = [int(row["regret_min"] or -1) for row in shown()]
    assert regrets == sorted(regrets, reverse=True)
    page.click("#interaction-table th:nth-child(5) button")
    assert [int(row["regret_min"] or -1) for row in shown()] == sorted(regrets)

    page.search("interaction-protein", "PBS2")
    page.pick("interaction-table", ["PBS2", "→", "HOG1"])
    near = [row for row in interactions if {row["first"], row["second"]} & {"PBS2", "HOG1"}]
    drawn = drawn_arcs(page, "interaction-drawing")
    assert {frozenset(arc) for arc in drawn} == {frozenset((row["first"], row["second"])) for row in near}
    page.click("#interaction-drawing .tools button:last-child")
    assert downloads.taken("netorient-paths.png").read_bytes().startswith(b"\x89PNG")
    page.search("interaction-protein", "")


def check_conflicts(page, pairs):
    lost = sorted((int(pair["price_min"]) for pair in pairs if pair["status"] == "lost"), reverse=True)
    assert [int(text) for text in page.texts("#lost-table tbody td:nth-child(2)")] == lost
    page.wait_for("#wanted-table tbody tr")
    page.click("#lost-table tbody tr")
    name = page.text("#lost-table tbody tr td")
    assert page.text("#pair-name") == name and page.script("return document.activeElement.id") == "pair-name"


def check_keyboard(page):
    page.script("document.querySelector('#pair-table tbody tr[tabindex=\"0\"]').focus()")
    page.press("HOME", "ARROW_DOWN", "ENTER")
    second = page.texts("#pair-table tbody tr:nth-child(2) td")
    assert page.text("#pair-name") == f"{second[0]} → {second[1]}"
    assert page.script("return document.activeElement.getAttribute('aria-selected')") == "true"


def check_looks(page):
    """Narrow, dark and printed."""
    page.resize(390, 800)
    assert page.script("return document.documentElement.scrollWidth") <= 390
    light = page.script("return document.getElementById('pair-drawing').graph.nodes()[0].style('background-color')")
    page.emulate(scheme="dark")
    dark = page.script("return document.getElementById('pair-drawing').graph.nodes()[0].style('background-color')")
    assert light != dark
    page.emulate(media="print")
    assert page.is_hidden("nav") and not page.is_hidden("#plots")
    page.emulate()


def check_hard_names(page, pairs):
    for field, column in (("pair-cause", "cause"), ("pair-effect", "effect")):
        for pair in pairs:
            page.search(field, pair[column])
            assert pair[column] in page.texts(f"#pair-table tbody td:nth-child({1 if column == 'cause' else 2})")
        page.search(field, "")
    shown = [name for column in (1, 3) for name in page.texts(f"#interaction-table tbody td:nth-child({column})")]
    assert set(shown) == set(HARD_NAMES), set(shown) ^ set(HARD_NAMES)
    assert page.script("return document.querySelectorAll('td b, td img, dd b, dd img').length") == 0
    assert "<i>nobody</i>" in page.text("#check-area") and "1 unknown name" in page.text("#check-area")
    longest = max((pair for pair in pairs if pair["status"] == "explained"), key=lambda pair: int(pair["distance"]))
    page.pick("pair-table", [longest["cause"], longest["effect"]])
    assert len(drawn_arcs(page, "pair-drawing")) >= int(longest["distance"])


def write_bare_tables(folder):
    """Without run.json and all else: a lost pair A D whose way over C has less to turn than the one over B."""
    folder.mkdir(parents=True, exist_ok=True)
    rows = ["B A undirected 1 1 first_to_second 1 2 2 decided", "D B undirected 2 1 first_to_second 1 2 2 decided",
            "A C directed 1 1 known 1 - - known", "D C undirected 3 1 first_to_second 1 0 3 open"]
    lost = "A D 1 lost - 2 2 0 - 1 3 D>A"
    pair_columns = "cause effect line status why distance paths open_paths path price_min price_max against"
    tables = {"interactions.tsv": [" ".join(INTERACTION_COLUMNS), *rows], "pairs.tsv": [pair_columns, lost]}
    for name, lines in tables.items():
        (folder / name).write_text("".join(line.replace(" ", "\t").replace("-", "") + "\n" for line in lines))


def check_bare_tables(page):
    assert page.text("#proof") == "Whether this is proven best is not known: run.json is missing."
    assert page.is_hidden("#files") and "not measured" in page.text("#figures")
    assert shown_facts(page, "pair-facts")["Price"].startswith("1–3: ")
    assert "In its way: 1 interaction that runs the other way, D → C (regret 0–3)." in page.text("#pair-facts")
    page.wait_for("#wanted-table tbody tr")
    assert page.texts("#wanted-table tbody td") == ["D → C", "1", "1", "0–3"]


def main(program, example, work):
    if not shutil.which("chromium") or not shutil.which("chromedriver"):
        print("Chromium is not there: tools/setup checks installs it")
        sys.exit(NOT_THERE)
    folder = work / "example-out"
    with Page(make_report(program, pathlib.Path(example), folder), work / "downloads") as page:
        pairs, interactions = (read_rows(folder / name) for name in ("pairs.tsv", "interactions.tsv"))
        check_summary(page, pairs, interactions, folder)
        num_drawn = check_pairs(page, pairs, interactions)
        check_interactions(page, interactions, page.downloads)
        check_conflicts(page, pairs)
        check_keyboard(page)
        check_looks(page)
        page.check_nothing_was_said_or_asked()
    write_hard_network(work / "hard")
    folder = work / "hard-out"
    with Page(make_report(program, work / "hard", folder), work / "downloads") as page:
        check_hard_names(page, read_rows(folder / "pairs.tsv"))
        page.check_nothing_was_said_or_asked()
    write_bare_tables(work / "bare")
    run(program, "report", work / "bare", "-o", work / "bare.html")
    with Page(work / "bare.html", work / "downloads") as page:
        check_bare_tables(page)
        page.check_nothing_was_said_or_asked()
    print(f"compared {num_drawn} drawings of pairs in Chromium with the tables, and {len(HARD_NAMES)} hard names")


main(sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3]))
