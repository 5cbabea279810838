// What `check` found in the input files.

function found_in(file, kind) {
  return file[kind].map(
    (one) => element(
      "div", {},
      `${one.description}: ${plural(one.count, "line")} (${one.lines.join(", ")}${
        one.count > one.lines.length ? ", …" : ""})`));
}

function check_sentence(check) {
  const unknown = check.unknown_names.count;
  if (check.clean) return "Every line counts, and every name is known.";
  return `${plural(check.lines_lost, "line")} lost, ${plural(unknown, "unknown name")}.`;
}

function unknown_names(names) {
  if (names.count === 0) return null;
  return [
    element("h3", {}, `Unknown names, ${names.first.length} of ${count_text(names.count)}`),
    plain_table(
      "Unknown names", ["Name", "Mentions", "Meant is perhaps"],
      names.first.map((one) => [one.name, one.mentions.count, one.meant.join(", ")]))
  ];
}

function start_check() {
  const {check} = data;
  if (!check) return;
  by_id("files").hidden = document.querySelector("nav a[href='#files']").hidden = false;
  by_id("check-area")
    .append(...
              [element("p", {class: "lead"}, check_sentence(check)),
               plain_table(
                 "Input files", ["File", "Lines", "Taken", "Dropped", "Hazards"],
                 check.files.map(
                   (file) => file.opened
                     ? [file.file, file.lines, file.taken, found_in(file, "dropped"), found_in(file, "hazards")]
                     : [file.file, "could not be opened", "", "", ""])),
               element(
                 "p", {class: "note"},
                 `${plural(check.unmentioned_proteins.count, "protein")} that no line mentions; ` +
                   `${plural(check.repeated_pairs.count, "pair")} listed more than once; ` +
                   `${plural(check.pairs_without_path.count, "pair")} without a path.`),
               unknown_names(check.unknown_names)]
                .flat()
                .filter((part) => part !== null));
}
