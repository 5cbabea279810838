#!/usr/bin/env python3
"""Exports of the example and of a network with hard names, read back by the programs that
they are meant for: every interaction with all that interactions.tsv says of it.

    exports_read_back.py NETORIENT-TOOLS EXAMPLE-FOLDER WORK-FOLDER
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "support/python"))
from written_tables import open_arc, orient, read_rows, require_package, run, shortest_path_arcs, write_hard_network

for package in ("ndex2", "networkx", "igraph"):
    require_package(package)
import igraph
import ndex2.cx2
import networkx


def expected_edges(rows):
    """By number of the row: the ends, and every cell as its type; None where it is empty."""
    edges = []
    for row in rows:
        number = {key: int(row[key]) if row[key] else None for key in ("line", "pairs", "regret_min", "regret_max")}
        ends = open_arc(row) or (row["first"], row["second"])
        edges.append((ends, {**row, **number, "confidence": float(row["confidence"]),
                             "is_directed": row["direction"] != "none", "is_test": row["file"] == "test"}))
    return edges


def compare_edges(format_name, found, expected):
    assert len(found) == len(expected), (format_name, len(found), len(expected))
    order = lambda edge: (edge[1]["file"], edge[1]["line"])
    for (ends, attributes), (right_ends, right) in zip(sorted(found, key=order), sorted(expected, key=order)):
        assert tuple(ends) == right_ends, (format_name, ends, right_ends)
        for key, value in right.items():
            none = -1 if format_name in ("networkx", "igraph") else None
            assert attributes.get(key) == (none if value is None else value), (format_name, key, attributes, right)


def read_cx2(path):
    network = ndex2.cx2.RawCX2NetworkFactory().get_cx2network(str(path))
    names = {key: node["v"]["name"] for key, node in network.get_nodes().items()}
    style = network.get_visual_properties()["edgeMapping"]
    assert style["EDGE_TARGET_ARROW_SHAPE"]["definition"]["attribute"] == "is_directed"
    colours = {entry["v"]: entry["vp"] for entry in style["EDGE_LINE_COLOR"]["definition"]["map"]}
    edges = network.get_edges().values()
    assert {edge["v"]["status"] for edge in edges} <= colours.keys()
    return names.values(), [((names[edge["s"]], names[edge["t"]]), edge["v"]) for edge in edges]


def read_networkx(path):
    graph = networkx.read_graphml(path)
    names = networkx.get_node_attributes(graph, "name")
    return names.values(), [((names[tail], names[head]), data) for tail, head, data in graph.edges(data=True)]


def read_igraph(path):
    graph = igraph.Graph.Read_GraphML(str(path))
    names = graph.vs["name"]
    # igraph has numbers of one kind only
    return names, [((names[edge.source], names[edge.target]), edge.attributes()) for edge in graph.es]


def compare_pairs(program, folder, rows, work):
    """--pair against all shortest paths that networkx finds; --neighbourhood against its balls."""
    opened = [arc for arc in map(open_arc, rows) if arc]
    whole = networkx.Graph((row["first"], row["second"]) for row in rows)
    explained = [pair for pair in read_rows(folder / "pairs.tsv") if pair["status"] == "explained"]
    assert explained
    chosen = explained[::max(1, len(explained) // 20)]
    for pair in chosen:
        on_paths = set().union(*shortest_path_arcs(opened, pair))
        run(program, "export", folder, work / "pair.tsv", "--pair", pair["cause"], pair["effect"])
        assert {(row["source"], row["target"]) for row in read_rows(work / "pair.tsv")} == on_paths, pair
    centre = explained[0]["cause"]
    for steps in (1, 2):
        near = set(networkx.ego_graph(whole, centre, steps))
        run(program, "export", folder, work / "near.graphml", "--part", centre, "--neighbourhood", steps)
        assert set(read_networkx(work / "near.graphml")[0]) == near, (centre, steps)
    return len(chosen)


def main(program, example, work):
    write_hard_network(work / "hard")
    for network in (pathlib.Path(example), work / "hard"):
        folder = orient(program, network, work / f"{network.name}-out")
        rows = read_rows(folder / "interactions.tsv")
        proteins = {row[end] for row in rows for end in ("first", "second")}
        expected = expected_edges(rows)
        for name, suffix, read in (("ndex2", "cx2", read_cx2), ("networkx", "graphml", read_networkx),
                                   ("igraph", "graphml", read_igraph)):
            run(program, "export", folder, work / f"whole.{suffix}")
            names, edges = read(work / f"whole.{suffix}")
            assert proteins <= set(names), (name, proteins - set(names))
            compare_edges(name, edges, expected)
        run(program, "export", folder, work / "whole.tsv")
        back = [{key: row[key] for key in rows[0]} for row in read_rows(work / "whole.tsv")]
        assert back == rows
        num_pairs = compare_pairs(program, folder, rows, work)
        print(f"compared {network.name}: {len(rows)} interactions as ndex2, networkx and igraph read them, "
              f"and {num_pairs} pairs")


main(sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3]))
