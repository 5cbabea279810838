"""What several tests in Python share: a network with names that are hard to show, runs of
netorient-tools, and the tables that it leaves, read without the project's own readers."""

import pathlib
import subprocess
import sys

NOT_THERE = 77  # exit status that ctest shows as skipped

# At most 19 characters, no blanks: whatever else a protein may be called.
HARD_NAMES = ["<b>bold</b>", "</script>", "<!--", "\"quoted\"", "it's", "&amp;", "back\\slash", "A>B;C", "__proto__",
              "constructor", "toString", "Ångström", "{{data}}", "<img/onerror=1//>", "end"]


def require_package(name):
    """The package of tools/fetch_python_readers; ends the test as skipped where it is not there."""
    try:
        return __import__(name)
    except ImportError:
        print(f"{name} is not there: tools/fetch_python_readers fetches it")
        sys.exit(NOT_THERE)


def run(program, *arguments, status=0):
    done = subprocess.run([program, *map(str, arguments)], capture_output=True, text=True)
    assert done.returncode == status, f"{arguments}: status {done.returncode}\n{done.stderr}"
    return done


def write_hard_network(folder):
    """A chain of all the names, in turns directed, to be oriented and test, and a detour."""
    folder.mkdir(parents=True, exist_ok=True)
    files = {"names.txt": [], "directed": [], "undirected": [], "test": [], "ko": []}
    files["names.txt"] = HARD_NAMES
    for k, (tail, head) in enumerate(zip(HARD_NAMES, HARD_NAMES[1:])):
        files[("directed", "undirected", "test")[k % 3]].append(f"{tail} {head} 0.5")
    files["undirected"].append(f"{HARD_NAMES[0]} {HARD_NAMES[2]} 1")
    for first, last in ((0, 4), (1, 9), (3, -1), (9, 1), (6, 2), (0, 0)):
        files["ko"].append(f"{HARD_NAMES[first]} {HARD_NAMES[last]} 1")
    files["ko"].append("<i>nobody</i> end 1")
    for name, lines in files.items():
        (folder / name).write_text("".join(line + "\n" for line in lines))


def orient(program, network, folder):
    folder.mkdir(parents=True, exist_ok=True)
    run(program, "orient", f"{network}/", f"{folder}/")
    return folder


def read_rows(path):
    """The rows of a table as dictionaries, escapes taken back."""
    letters = {"\\": "\\", "t": "\t", "n": "\n", "r": "\r"}

    def unescaped(cell):
        text, parts = "", iter(cell)
        for c in parts:
            text += letters[next(parts)] if c == "\\" else c
        return text

    head, *lines = pathlib.Path(path).read_text().split("\n")[:-1]
    return [dict(zip(head.split("\t"), map(unescaped, line.split("\t")))) for line in lines]


def shortest_path_arcs(arcs, pair):
    """The arcs on all shortest paths of a pair over these arcs, as networkx finds them, path by path."""
    import networkx
    paths = list(networkx.all_shortest_paths(networkx.DiGraph(list(arcs)), pair["cause"], pair["effect"]))
    return [set(zip(path, path[1:])) for path in paths]


def open_arc(row):
    """Tail and head of an interaction as the answer has it; None where it has no direction."""
    if row["direction"] == "none":
        return None
    return (row["second"], row["first"]) if row["direction"] == "second_to_first" else (row["first"], row["second"])
