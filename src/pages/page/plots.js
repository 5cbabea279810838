// Plots, each with its numbers as a table.

function plot(title, picture, titles, rows, note = null) {
  return element(
    "figure", {}, element("figcaption", {}, title), picture, note ? element("p", {class: "note"}, note) : null,
    element("details", {}, element("summary", {}, "Numbers"), plain_table(title, titles, rows)));
}

// Upright bars, each made of parts {value, colour}. Labels stand below, totals above.
function bar_picture(title, bars) {
  const [width, height, left, bottom, top] = [420, 210, 8, 34, 22];
  const most = Math.max(1, ...bars.map((bar) => bar.parts.reduce((sum, part) => sum + part.value, 0)));
  const slot = (width - left) / Math.max(bars.length, 1);
  const drawn = bars.map((bar, k) => {
    let y = height - bottom;
    const x = left + k * slot + slot * 0.14;
    const blocks = bar.parts.map((part) => {
      const size = (height - bottom - top) * part.value / most;
      y -= size;
      return svg_element("rect", {x, y, width: slot * 0.72, height: size, fill: `var(--${part.colour})`});
    });
    const middle = left + (k + 0.5) * slot;
    const total = bar.parts.reduce((sum, part) => sum + part.value, 0);
    return [
      ...blocks, svg_element("text", {x: middle, y: y - 5, "text-anchor": "middle"}, count_text(total)),
      svg_element("text", {x: middle, y: height - bottom + 16, "text-anchor": "middle", class: "soft"}, bar.label)
    ];
  });
  return svg_element(
    "svg",
    {viewBox: `0 0 ${width} ${height}`, role: "img", "aria-label": `${title}; the numbers are in the table below`},
    drawn.flat(), svg_element("line", {x1: left, x2: width, y1: height - bottom, y2: height - bottom, class: "axis"}));
}

function legend_of(statuses) {
  return element("ul", {class: "legend"}, statuses.map((status) => element("li", {}, marked(status))));
}

function regret_plot() {
  const title = "Directions by regret";
  const statuses = ["tied", "decided", "open"];
  const counted = regret_classes.map(() => ({tied: 0, decided: 0, open: 0}));
  for (let i = 0; i < num_interactions; ++i) {
    const found = regret_class(i);
    if (found !== none) ++counted[found][status_of(i)];
  }
  const shown = statuses.filter((status) => counted.some((count) => count[status] > 0));
  if (shown.length === 0) return null;  // not computed
  const bars = regret_classes.map(
    (one, k) => ({label: one.name, parts: shown.map((status) => ({value: counted[k][status], colour: status}))}));
  return plot(
    title, element("div", {}, bar_picture(title, bars), legend_of(shown)), ["Regret", ...shown],
    regret_classes.map((one, k) => [one.name, ...shown.map((status) => counted[k][status])]),
    shown.includes("open") ? "A regret known as a range counts by its lower end." : null);
}

function distance_plot() {
  const title = "Pairs by number of steps";
  const statuses = ["explained", "lost"];
  const longest = Math.max(0, ...pairs.distance);
  const counted = Array.from({length: longest}, () => ({explained: 0, lost: 0}));
  for (let pair = 0; pair < num_pairs; ++pair) {
    const status = pair_status(pair);
    if (pairs.distance[pair] > 0 && statuses.includes(status)) ++counted[pairs.distance[pair] - 1][status];
  }
  const rows = counted.map((count, k) => [k + 1, count.explained, count.lost]);
  const bars = counted.map(
    (count, k) => ({label: k + 1, parts: statuses.map((status) => ({value: count[status], colour: status}))}));
  return plot(title, element("div", {}, bar_picture(title, bars), legend_of(statuses)), ["Steps", ...statuses], rows);
}

// Shares, a line each: {label, share, is_ours}, with low and high the ends of an interval, beside another share.
function share_picture(title, lines) {
  const [width, left, right, line_height] = [420, 150, 56, 30];
  const height = lines.length * line_height + 26;
  const x = (share) => left + (width - left - right) * share;
  const drawn = lines.map((line, k) => {
    const y = k * line_height + 16;
    const looks = `var(--${line.is_ours ? "decided" : "soft"})`;
    return [
      svg_element("text", {x: left - 10, y: y + 4, "text-anchor": "end"}, line.label),
      line.low === undefined
        ? null
        : svg_element("line", {x1: x(line.low), x2: x(line.high), y1: y, y2: y, stroke: looks, "stroke-width": 2}),
      line.beside === undefined
        ? null
        : svg_element(
            "line",
            {x1: x(line.beside), x2: x(line.beside), y1: y - 9, y2: y + 9, stroke: "var(--soft)", "stroke-width": 3}),
      svg_element("circle", {cx: x(line.share), cy: y, r: line.is_ours ? 5.5 : 4.5, fill: looks}),
      svg_element("text", {x: width - 2, y: y + 4, "text-anchor": "end"}, percent(line.share))
    ];
  });
  const ticks = [0, 0.25, 0.5, 0.75, 1].map(
    (share) =>
      [svg_element("line", {x1: x(share), x2: x(share), y1: 2, y2: height - 22, class: "axis"}),
       svg_element("text", {x: x(share), y: height - 7, "text-anchor": "middle", class: "soft"}, `${100 * share}`)]);
  return svg_element(
    "svg",
    {viewBox: `0 0 ${width} ${height}`, role: "img", "aria-label": `${title}; the numbers are in the table below`},
    ticks.flat(), drawn.flat().filter((part) => part !== null));
}

function start_plots() {
  by_id("plot-area")
    .append(...[regret_plot(), distance_plot(), ...(data.evaluation ? evaluation_plots(data.evaluation) : [])].filter(
      (made) => made !== null));
}
