// Tables of any length: a page of rows at a time, sorted by a click on a column's head,
// rows picked by click or keyboard.

const rows_per_page = 15;

// columns: {title, text(row), value(row) to sort by, is_number}. Options: sorted_by (column),
// descending, and pick(row), called when the user chooses a row. A row is any number.
// Returns {show(rows), choose(row), rows()}; rows() are those shown, in their order.
function make_table(place, caption, columns, {pick = null, sorted_by = 0, descending = false, empty = "None."} = {}) {
  let rows = [];
  let page = 0;
  let picked = null;
  const head = element("tr", {class: pick ? "pickable" : ""});
  const body = element("tbody");
  const where = element("span", {"aria-live": "polite"});
  const back = element("button", {type: "button", onclick: () => turn_to(page - 1)}, "Previous");
  const onward = element("button", {type: "button", onclick: () => turn_to(page + 1)}, "Next");
  const heads = columns.map(
    (column, k) => element(
      "th", {scope: "col", class: column.is_number ? "number-cell" : null},
      element("button", {type: "button", onclick: () => sort_by(k)}, column.title)));
  head.append(...heads);
  place.append(
    element(
      "div", {class: "table-frame"},
      element(
        "table", {role: pick ? "grid" : null}, element("caption", {class: "visually-hidden"}, caption),
        element("thead", {}, head), body)),
    element("div", {class: "pager"}, where, back, onward));

  function compare(a, b) {
    const [x, y] = [columns[sorted_by].value(a), columns[sorted_by].value(b)];
    const order = typeof x === "string" ? by_name(x, y) : x - y;
    return (descending ? -order : order) || a - b;
  }

  function sort_by(column) {
    descending = column === sorted_by ? !descending : Boolean(columns[column].is_number);
    sorted_by = column;
    rows.sort(compare);
    turn_to(0);
  }

  function turn_to(wanted) {
    page = Math.max(0, Math.min(wanted, Math.ceil(rows.length / rows_per_page) - 1));
    const start = page * rows_per_page;
    const shown = rows.slice(start, start + rows_per_page);
    body.replaceChildren(...shown.map((row, k) => table_row(row, k)));
    heads.forEach(
      (cell, k) => cell.setAttribute(
        "aria-sort",
        k !== sorted_by ? "none"
          : descending  ? "descending"
                        : "ascending"));
    where.textContent = rows.length === 0
      ? empty
      : `${count_text(start + 1)}–${count_text(start + shown.length)} of ${count_text(rows.length)}`;
    back.disabled = page === 0;
    onward.disabled = start + rows_per_page >= rows.length;
    back.hidden = onward.hidden = rows.length <= rows_per_page;
  }

  function table_row(row, position) {
    const cells =
      columns.map((column) => element("td", {class: column.is_number ? "number-cell" : null}, column.text(row)));
    if (!pick) return element("tr", {}, cells);
    return element(
      "tr", {
        class: "pickable",
        "data-row": row,
        "aria-selected": String(row === picked),
        tabindex: row === picked || (position === 0 && picked === null) ? 0 : -1,
        onclick: () => choose(row),
        onkeydown: move,
      },
      cells);
  }

  // One row of the page takes the focus of the tab key; arrows go on from there.
  function move(event) {
    const row = event.currentTarget;
    const next = {
      ArrowDown: row.nextElementSibling,
      ArrowUp: row.previousElementSibling,
      Home: body.firstElementChild,
      End: body.lastElementChild
    }[event.key];
    if (event.key === "Enter" || event.key === " ") {
      event.preventDefault();
      choose(Number(row.dataset.row));
    } else if (next) {
      event.preventDefault();
      row.tabIndex = -1;
      next.tabIndex = 0;
      next.focus();
    }
  }

  function choose(row) {
    mark(row);
    pick(row);
  }

  function mark(row) {
    picked = row;
    let has_stop = false;
    for (const shown of body.children) {
      const is_picked = Number(shown.dataset.row) === row;
      shown.setAttribute("aria-selected", String(is_picked));
      shown.tabIndex = is_picked ? 0 : -1;
      has_stop ||= is_picked;
    }
    if (!has_stop && body.firstElementChild) body.firstElementChild.tabIndex = 0;
  }

  function show(chosen) {
    rows = Array.from(chosen).sort(compare);
    turn_to(0);
    if (pick) mark(picked);
  }

  return {show, choose, rows: () => rows};
}

// A small table with all rows, for the numbers behind a picture.
function plain_table(caption, titles, rows) {
  return element(
    "div", {class: "table-frame"},
    element(
      "table", {}, element("caption", {class: "visually-hidden"}, caption),
      element("thead", {}, element("tr", {}, titles.map((title) => element("th", {scope: "col"}, title)))),
      element("tbody", {}, rows.map((row) => element("tr", {}, row.map((cell) => element("td", {}, cell)))))));
}
