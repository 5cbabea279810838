#!/usr/bin/env python3
"""Networks and knockout effects as the libraries write them that users work with, imported
and compared with what the libraries hold. Nothing is fetched.

    libraries_write_imports.py NETORIENT-TOOLS WORK-FOLDER
"""

import io
import logging
import pathlib
import random
import sys
import types

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "support/python"))
from written_tables import require_package, run

for package in ("pandas", "networkx", "ndex2", "requests"):
    require_package(package)
import ndex2
import networkx
import pandas
import requests

PROTEINS = ["AAA1", "BBB-2", "CCC.3", "D,D4", "E\"E5", "F'F6", "NA7", "nan", "11", "JJJ10", "KKK11", "LLL12"]


def draw_network():
    """Weights of edges, and which of them are directed: from the first to the second."""
    draw = random.Random(7)
    edges = {}
    for i, first in enumerate(PROTEINS):
        for second in PROTEINS[i + 1:]:
            if draw.random() < 0.5:
                ends = (first, second) if draw.random() < 0.5 else (second, first)
                edges[ends] = (draw.randrange(1, 1000) / 1000, draw.random() < 0.5)
    return edges


def draw_effects():
    """A value for each cause and effect."""
    draw = random.Random(8)
    return {(cause, effect): round(draw.uniform(-3, 3), 3) for cause in PROTEINS[:4] for effect in PROTEINS}


def read_pairs(path, with_confidence=True):
    rows = [line.split(" ") for line in path.read_text().splitlines()]
    return {(first, second): float(rest) if with_confidence else None for first, second, rest in rows}


class importer:
    def __init__(self, program, work):
        self.program, self.work, self.compared = program, work, 0
        work.mkdir(parents=True, exist_ok=True)

    def check(self, name, network, directed, undirected, pairs, options=(), knockouts="ko.tsv"):
        folder = self.work / f"in_{name}"
        run(self.program, "import", "--interactions", self.work / network, "--knockouts", self.work / knockouts,
            *options, folder)
        run(self.program, "check", folder)
        sorted_ends = lambda edges: {tuple(sorted(ends)): weight for ends, weight in edges.items()}
        assert read_pairs(folder / "directed") == directed, name
        assert sorted_ends(read_pairs(folder / "undirected")) == sorted_ends(undirected), name
        assert set(read_pairs(folder / "ko", False)) == pairs, name
        self.compared += len(directed) + len(undirected) + len(pairs)


def check_pandas(imports, edges, directed, undirected, effects):
    table = pandas.DataFrame([{"protein_a": a, "protein_b": b, "directed": d, "weight": w}
                              for (a, b), (w, d) in edges.items()])
    columns = ["--columns", "first=protein_a,second=protein_b"]
    long = pandas.DataFrame([{"cause": c, "effect": e, "log2fc": v, "padj": 0.01 if v > 0 else None}
                             for (c, e), v in effects.items()])
    long.to_csv(imports.work / "ko.tsv", sep="\t", index=False)
    long.to_csv(imports.work / "ko.csv.gz")  # with its index, gzipped
    thresholds = ["--where", "|log2fc|>=1", "--where", "padj<0.05"]
    taken = {ends for ends, value in effects.items() if value >= 1 and ends[0] != ends[1]}
    for name, options in (("a.tsv", {"sep": "\t", "index": False}), ("a.csv", {}), ("a.csv.gz", {"quoting": 2}),
                          ("b.csv", {"sep": ";", "lineterminator": "\r\n", "encoding": "utf-8-sig"})):
        table.to_csv(imports.work / name, **options)
        imports.check(name, name, directed, undirected, taken, columns + thresholds, "ko.csv.gz")
    matrix = long.pivot(index="effect", columns="cause", values="log2fc")
    matrix.to_csv(imports.work / "matrix.tsv", sep="\t")
    low = {ends for ends, value in effects.items() if value <= -2 and ends[0] != ends[1]}
    imports.check("matrix", "a.tsv", directed, undirected, low,
                  columns + ["--knockout-format", "matrix", "--where", "value<=-2"], "matrix.tsv")


def check_networkx(imports, edges, directed, undirected, taken, thresholds):
    graph = networkx.DiGraph()
    graph.add_weighted_edges_from((a, b, w) for (a, b), (w, d) in edges.items() if d)
    networkx.write_weighted_edgelist(graph, imports.work / "weighted.gz")
    imports.check("weighted", "weighted.gz", directed, {}, {ends for ends in taken if set(ends) <= set(graph)},
                  ["--columns", "first=1,second=2,confidence=3", "--default-direction", "directed"] + thresholds)
    plain = networkx.Graph()
    plain.add_weighted_edges_from((a, b, w) for (a, b), (w, d) in edges.items() if not d)
    networkx.to_pandas_edgelist(plain).to_csv(imports.work / "edgelist.csv", index=False)
    imports.check("edgelist", "edgelist.csv", {}, undirected, {ends for ends in taken if set(ends) <= set(plain)},
                  thresholds)


def check_ndex2(imports, edges, directed, undirected, taken, thresholds):
    network = ndex2.nice_cx_network.NiceCXNetwork()
    nodes = {name: network.create_node(node_name=name) for name in PROTEINS}
    for (a, b), (weight, is_directed) in edges.items():
        network.create_edge(edge_source=nodes[a], edge_target=nodes[b], edge_interaction="pd" if is_directed else "pp")
    frame = network.to_pandas_dataframe()
    frame.to_csv(imports.work / "nice.tsv", sep="\t", index=False)
    ones = lambda known: {ends: 1.0 for ends in known}
    imports.check("nice", "nice.tsv", ones(directed), ones(undirected), taken, thresholds)
    frame[["source", "interaction", "target"]].to_csv(imports.work / "nice.sif", sep="\t", index=False, header=False,
                                                      quoting=3)
    imports.check("sif", "nice.sif", ones(directed), ones(undirected), taken, thresholds)


def check_omnipath(imports, edges, directed, undirected, taken, thresholds):
    """The client's table of what a server, played here, sends."""
    stand_in = types.ModuleType("docrep")  # it only writes docstrings, and has no binary package

    class DocstringProcessor:
        def __init__(self, **parts):
            pass

        def dedent(self, function):
            return function

        def get_sections(self, **choices):
            return lambda function: function

        get_full_description = get_sections

    stand_in.DocstringProcessor = DocstringProcessor
    sys.modules["docrep"] = stand_in
    header = ["source", "target", "source_genesymbol", "target_genesymbol", "is_directed", "is_stimulation",
              "is_inhibition", "consensus_direction", "consensus_stimulation", "consensus_inhibition", "curation_effort",
              "sources", "references"]
    # The client takes "nan" for no name.
    without_nan = lambda known: {ends: known[ends] for ends in known if "nan" not in ends}
    edges, directed, undirected = without_nan(edges), without_nan(directed), without_nan(undirected)
    taken = {ends for ends in taken if "nan" not in ends}
    accession = {name: f"P{i:05}" for i, name in enumerate(PROTEINS)}
    rows = [[accession[a], accession[b], a, b, int(d), 0, 1, int(d), 0, 1, round(1000 * w), "X;Y", "X:1"]
            for (a, b), (w, d) in edges.items()]
    sent = "".join("\t".join(map(str, row)) + "\n" for row in [header] + rows)

    def answer(session, request, **settings):
        if "/queries" in request.url:
            raise requests.exceptions.ConnectionError("nobody is asked")
        response = requests.Response()
        response.status_code, response.url = 200, request.url
        response.raw = io.BytesIO(("0.0.0" if "/about" in request.url else sent).encode())
        return response

    requests.Session.send = answer
    logging.disable(logging.CRITICAL)
    require_package("omnipath")
    import omnipath
    omnipath.options.progress_bar = False
    omnipath.options.cache = "memory"
    for name, options in (("omnipath.tsv", {"sep": "\t", "index": False}), ("omnipath.csv.gz", {})):
        table = omnipath.interactions.OmniPath.get(genesymbols=True)
        assert len(table) == len(edges)
        table.to_csv(imports.work / name, **options)
        thousands = lambda known: {ends: round(1000 * weight) for ends, weight in known.items()}
        imports.check(name, name, thousands(directed), thousands(undirected), taken,
                      ["--columns", "confidence=curation_effort"] + thresholds)


def main(program, work):
    edges, effects = draw_network(), draw_effects()
    directed = {ends: weight for ends, (weight, is_directed) in edges.items() if is_directed}
    undirected = {ends: weight for ends, (weight, is_directed) in edges.items() if not is_directed}
    imports = importer(program, work)
    check_pandas(imports, edges, directed, undirected, effects)
    thresholds = ["--where", "log2fc>=1"]
    taken = {ends for ends, value in effects.items() if value >= 1 and ends[0] != ends[1]}
    check_networkx(imports, edges, directed, undirected, taken, thresholds)
    check_ndex2(imports, edges, directed, undirected, taken, thresholds)
    check_omnipath(imports, edges, directed, undirected, taken, thresholds)
    print(f"compared {imports.compared} interactions and pairs that pandas, networkx, ndex2 and omnipath wrote")


main(sys.argv[1], pathlib.Path(sys.argv[2]))
