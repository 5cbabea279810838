// What the run has recorded, as it stands in run.json.

const is_record = (value) => value !== null && typeof value === "object";

function value_text(value) {
  return typeof value === "number" ? value.toLocaleString("en", {maximumFractionDigits: 6}) : String(value ?? "none");
}

// Records with the same keys are the rows of a table, plain values stand on a line.
function value_element(value) {
  if (!is_record(value)) return value_text(value);
  const members = Object.values(value);
  if (!members.some(is_record)) {
    return Array.isArray(value)
      ? members.map(value_text).join(" ")
      : Object.entries(value).map(([key, one]) => `${key.replaceAll("_", " ")} ${value_text(one)}`).join(", ");
  }
  const keys = is_record(members[0]) ? Object.keys(members[0]) : [];
  if (Array.isArray(value) && members.every((one) => is_record(one) && Object.keys(one).join() === keys.join())) {
    return plain_table(
      "", keys.map((key) => key.replaceAll("_", " ")), members.map((one) => Object.values(one).map(value_element)));
  }
  return record_table(value);
}

function record_table(record) {
  return element(
    "table", {class: "tree"},
    element(
      "tbody", {},
      Object.entries(record).map(
        ([key, value]) => element(
          "tr", {}, element("th", {scope: "row"}, key.replaceAll("_", " ")),
          element("td", {}, value_element(value))))));
}

function start_provenance() {
  by_id("run-area").append(data.run ? record_table(data.run) : "run.json is missing.");
}
