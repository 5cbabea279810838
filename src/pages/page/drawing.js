// A few proteins and arcs, drawn from left to right by Cytoscape.js and dagre.

const page_font = getComputedStyle(document.body).fontFamily;

function colour(name) {
  return getComputedStyle(document.documentElement).getPropertyValue(`--${name}`).trim();
}

// Canvases know no CSS variables, so the looks are made anew when the scheme changes.
function drawing_looks() {
  const line = (state, more) =>
    ({selector: `edge.${state}`, style: {"line-color": colour(state), "target-arrow-color": colour(state), ...more}});
  return [
    {
      selector: "node",
      style: {
        label: "data(label)",
        width: "data(width)",
        height: 24,
        shape: "round-rectangle",
        "background-color": colour("panel"),
        "border-width": 1,
        "border-color": colour("soft"),
        color: colour("ink"),
        "font-family": page_font,
        "font-size": 12,
        "text-valign": "center",
        "text-halign": "center"
      }
    },
    {selector: "node.end", style: {"border-width": 2.5, "border-color": colour("ink"), "font-weight": "bold"}},
    {
      selector: "edge",
      style: {
        width: 2,
        "curve-style": "bezier",
        "target-arrow-shape": "triangle",
        "arrow-scale": 1.1,
        label: "data(label)",
        color: colour("ink"),
        "font-family": page_font,
        "font-size": 11,
        "text-background-color": colour("paper"),
        "text-background-opacity": 1,
        "text-background-padding": 2
      }
    },
    ...["known", "decided", "tied", "unused", "open"].map((status) => line(status)),
    {selector: "edge.unused", style: {"target-arrow-shape": "none"}},
    line("lost", {width: 3, "target-arrow-shape": "tee"}),
    {selector: "edge.test", style: {"line-style": "dashed"}},
  ];
}

const measuring = document.createElement("canvas").getContext("2d");
function node_width(label) {
  measuring.font = `bold 12px ${page_font}`;
  return Math.max(36, measuring.measureText(label).width + 16);
}

// Regret of the direction that the arc runs in, or what keeps it from being used.
function step_text(arc) {
  const i = arc >> 1;
  const state = arc_state(arc);
  if (state === "free") return "no direction";
  if (status_of(i) === "known") return "known";
  const regret = regret_text(i) === "" ? status_of(i) : `regret ${regret_text(i)}`;
  return state === "turned" ? `runs the other way, ${regret}` : regret;
}

function elements_of(arcs, ends) {
  const nodes = new Map(ends.map((protein) => [protein, "end"]));
  for (const arc of arcs) {
    for (const protein of [tail_of(arc), head_of(arc)])
      if (!nodes.has(protein)) nodes.set(protein, "");
  }
  return [
    ...Array.from(
      nodes,
      ([protein, classes]) =>
        ({classes, data: {id: `p${protein}`, label: proteins[protein], width: node_width(proteins[protein])}})),
    ...arcs.map(
      (arc) => ({
        data: {id: `a${arc}`, source: `p${tail_of(arc)}`, target: `p${head_of(arc)}`, label: regret_text(arc >> 1)},
        classes: [arc_state(arc) === "turned" ? "lost" : status_of(arc >> 1), file_of(arc >> 1)].join(" ")
      })),
  ];
}

// Returns {show(arcs, ends, description)}; without arcs the drawing goes away.
function make_drawing(place) {
  let graph = null;
  const canvas = element("div", {class: "canvas", role: "img"});
  const zoom = (factor) =>
    graph.zoom({level: graph.zoom() * factor, renderedPosition: {x: graph.width() / 2, y: graph.height() / 2}});
  const tool = (title, act) => element("button", {type: "button", onclick: act}, title);
  const legend = element("ul", {class: "legend"});
  const tools = element(
    "div", {class: "tools"}, tool("Larger", () => zoom(1.25)), tool("Smaller", () => zoom(0.8)), tool("All", fit),
    tool("Save as PNG", save));
  place.hidden = true;
  place.append(canvas, legend, tools);

  // As large as fits the width, never larger than the page's own letters.
  function fit() {
    const box = graph.elements().boundingBox();
    const zoom_wanted = Math.min(1.1, (canvas.clientWidth - 28) / box.w);
    canvas.style.height = `${Math.max(130, Math.min(640, box.h * zoom_wanted + 36))}px`;
    graph.resize();
    graph.fit(undefined, 14);
    graph.zoom(Math.min(graph.zoom(), zoom_wanted));
    graph.center();
  }

  function save() {
    element("a", {href: graph.png({full: true, scale: 2, bg: colour("paper")}), download: "netorient-paths.png"})
      .click();
  }

  function show_legend(arcs) {
    const states = new Set(arcs.map((arc) => arc_state(arc) === "turned" ? "lost" : status_of(arc >> 1)));
    const words = {lost: "runs the other way"};
    const notes = [];
    if (arcs.some((arc) => regret_text(arc >> 1) !== "")) notes.push("number: regret");
    if (arcs.some((arc) => file_of(arc >> 1) === "test")) notes.push("dashed: test interaction");
    legend.replaceChildren(
      ...Array.from(states, (state) => element("li", {}, colour_mark(state), words[state] ?? state)),
      ...notes.map((note) => element("li", {}, note)));
  }

  function show(arcs, ends, description) {
    place.hidden = arcs.length === 0;
    graph?.destroy();
    graph = null;
    if (arcs.length === 0) return;
    canvas.setAttribute("aria-label", description);
    graph = cytoscape({
      container: canvas,
      elements: elements_of(arcs, ends),
      style: drawing_looks(),
      layout: {name: "dagre", rankDir: "LR", nodeSep: 14, rankSep: 50, fit: false},
      userZoomingEnabled: false,
      boxSelectionEnabled: false,
      autoungrabify: true
    });
    place.graph = graph;  // for whoever looks at the page from outside
    show_legend(arcs);
    fit();
  }

  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => graph?.style(drawing_looks()));
  addEventListener("resize", () => {
    if (graph) fit();
  });
  return {show};
}

// The same as words: a row for every arc drawn.
function step_table(arcs) {
  return element(
    "details", {}, element("summary", {}, `The ${plural(arcs.length, "step")} as a table`),
    plain_table(
      "Steps drawn", ["From", "To", "Status", "What it rests on"],
      arcs.map(
        (arc) => [proteins[tail_of(arc)], proteins[head_of(arc)], marked(status_of(arc >> 1)), step_text(arc)])));
}
