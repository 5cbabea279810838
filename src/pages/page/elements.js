// Building the page. Whatever comes from a table enters as text, never as HTML.

function by_id(id) {
  return document.getElementById(id);
}

// An element with attributes and children: elements, or anything else as text.
function element(tag, attributes = {}, ...children) {
  return filled(document.createElement(tag), attributes, children);
}

function svg_element(tag, attributes = {}, ...children) {
  return filled(document.createElementNS("http://www.w3.org/2000/svg", tag), attributes, children);
}

function filled(made, attributes, children) {
  for (const [name, value] of Object.entries(attributes)) {
    if (name.startsWith("on")) {
      made.addEventListener(name.slice(2), value);
    } else if (value !== null && value !== undefined) {
      made.setAttribute(name, value);
    }
  }
  made.append(...children.flat(Infinity).filter((child) => child !== null && child !== undefined));
  return made;
}

// A status with its colour before it.
function marked(status) {
  return element("span", {}, colour_mark(status), status.replace("_", " "));
}

function colour_mark(status) {
  return element("span", {class: "mark", style: `background: var(--${status})`, "aria-hidden": "true"});
}

// Terms and what is said of them; terms without anything are left out.
function facts(entries) {
  return element(
    "dl", {class: "facts"},
    entries.filter(([, text]) => text !== null && text !== "")
      .map(([term, text]) => [element("dt", {}, term), element("dd", {}, text)]));
}

function fill_select(select, options) {
  select.append(...options.map(([value, text]) => element("option", {value}, text)));
}

// Waits until the typing pauses, so that a long table is filtered once.
function when_settled(inputs, act) {
  let waiting = 0;
  for (const input of inputs) {
    input.addEventListener(input.tagName === "SELECT" ? "change" : "input", () => {
      clearTimeout(waiting);
      waiting = setTimeout(act, 80);
    });
    input.form.addEventListener("submit", (event) => event.preventDefault());
  }
}

function download(name, type, text) {
  const address = URL.createObjectURL(new Blob([text], {type}));
  element("a", {href: address, download: name}).click();
  setTimeout(() => URL.revokeObjectURL(address), 10000);
}

// "12,345".
function count_text(count) {
  return count.toLocaleString("en");
}

function plural(count, noun) {
  return `${count_text(count)} ${noun}${count === 1 ? "" : "s"}`;
}

function percent(share) {
  return `${(100 * share).toFixed(share > 0 && share < 0.1 ? 1 : 0)}\u00a0%`;
}
