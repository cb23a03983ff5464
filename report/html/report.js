"use strict";
// The live part of a report: the table of histories, of which only what is seen is in the document, its filters, and the panel of an
// opened cell. Everything is made of nodes and texts, never of markup: names in a model may hold any.
document.documentElement.classList.add("scripted"); // what only readers without script see need not be laid out
document.addEventListener("DOMContentLoaded", () => {
  /** How high a row is; the style says the same. */
  const ROW = 26;
  /** Rows and columns that are kept beyond what is seen. */
  const SPARE_ROWS = 4;
  const SPARE_COLUMNS = 4;
  /** A browser's limit to the height of an element, well within. */
  const MOST_HEIGHT = 8_000_000;
  const FREED = -1;
  const NO_VALUE = -2;

  document.getElementById("signs").remove(); // the table shows it
  const data = JSON.parse(document.getElementById("data").textContent);
  const steps = data.steps.map(([name, procedure, period]) => ({ name, procedure, period }));
  const words = data.words.map(([word, meaning, sign, style]) => ({ word, meaning, sign, style }));

  /**
   * Makes an element.
   * @param {string} tag
   * @param {Object<string, string>} attributes
   * @param {...(Node|string)} children
   */
  function make(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
    element.append(...children);
    return element;
  }

  /** @param {string} tag @param {Object<string, string|number>} attributes */
  function draw(tag, attributes, ...children) {
    const element = document.createElementNS("http://www.w3.org/2000/svg", tag);
    for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, String(value));
    element.append(...children);
    return element;
  }

  /**
   * What an attribute does in every step.
   * @typedef {{index: number, name: string, folded: string, type: string, kind: Object, suppressed: boolean,
   *            ends: number[], statuses: number[], fixed: number, events: number[]}} Attribute
   */

  /** Reads "a2bc9": a letter for each run of steps with one status, and how many they are where that is not one. */
  function readRuns(text) {
    const ends = [];
    const statuses = [];
    let end = 0;
    for (let i = 0; i < text.length; ) {
      statuses.push(text.charCodeAt(i++) - 97);
      let length = 0;
      for (; i < text.length && text.charCodeAt(i) < 58; ++i) length = length * 10 + text.charCodeAt(i) - 48;
      ends.push((end += length || 1));
    }
    return { ends, statuses };
  }

  const kinds = data.kinds.map(([label, own, active, name]) => ({ label, own, active, name }));
  const types = data.types.map(([name, kind]) => ({ name, kind: kinds[kind] }));
  /** @type {Attribute[]} */
  const attributes = data.attributes.map(([name, type, suppressed, runs, fixed, events], index) => ({
    index,
    name,
    folded: name.toLowerCase(),
    type: types[type].name,
    kind: types[type].kind,
    suppressed: suppressed === 1,
    ...readRuns(runs),
    fixed,
    events,
  }));
  const used = new Set(attributes.flatMap((attribute) => attribute.statuses));

  /** The number of the run that holds a step. */
  function runAt(attribute, step) {
    let low = 0;
    let high = attribute.ends.length - 1;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (attribute.ends[middle] > step) high = middle;
      else low = middle + 1;
    }
    return low;
  }
  const statusAt = (attribute, step) => attribute.statuses[runAt(attribute, step)];
  const saysIn = (attribute, status) => ((attribute.kind.own >> status) & 1) === 1;
  const isActive = (attribute, status) => !attribute.suppressed && ((attribute.kind.active >> status) & 1) === 1;

  /** Calls visit(begin, member, value, origin) for what changes of an attribute's members, in the order of steps. */
  function forEachEvent(attribute, visit) {
    const events = attribute.events;
    for (let i = 0; i < events.length; ) {
      const begin = events[i++];
      let says = events[i++];
      let origin = begin;
      if (says < 0) {
        says = -1 - says;
        origin = events[i++];
      }
      const pairs = data.says[says];
      for (let k = 0; k < pairs.length; k += 2) visit(begin, pairs[k], pairs[k + 1], origin);
    }
  }

  /** The values in a step: by member the value's number and the step that set it. */
  function valuesAt(attribute, step) {
    const values = new Map();
    forEachEvent(attribute, (begin, member, value, origin) => {
      if (begin > step) return;
      if (value === NO_VALUE) values.delete(member);
      else values.set(member, { value, origin });
    });
    return values;
  }

  const shown = (value) => (value === FREED ? "freed" : String(data.values[value]));

  // ---- what is chosen

  const filter = { text: "", kind: "", type: "", statuses: new Set(), from: 0, to: steps.length - 1, changes: false };
  /** The attributes and steps that the filters leave. */
  let rows = attributes;
  let columns = steps.map((_, index) => index);
  /** Whether cells hold words; null: as there is room. */
  let wordy = null;
  /** The cell that keys move; column -1 is the name. */
  const active = { row: 0, column: -1 };
  let opened = false;

  /** Whether a name holds the text, or fits it where that has * or ? in it. */
  function nameFits(text) {
    const folded = text.trim().toLowerCase();
    if (!/[*?]/.test(folded)) return (name) => name.includes(folded);
    const pattern = folded.replace(/[.+^${}()|[\]\\]/g, "\\$&").replace(/\*/g, ".*").replace(/\?/g, ".");
    const expression = new RegExp(`^${pattern}$`, "s");
    return (name) => expression.test(name);
  }

  function applyFilters() {
    const fits = nameFits(filter.text);
    const from = Math.min(filter.from, filter.to);
    const to = Math.max(filter.from, filter.to);
    const said = new Set();
    const keptAttribute = rows[active.row];
    const keptStep = columns[active.column];
    rows = attributes.filter((attribute) => {
      if (filter.kind && attribute.kind.name !== filter.kind) return false;
      if (filter.type && attribute.type !== filter.type) return false;
      if (!fits(attribute.folded)) return false;
      if (filter.statuses.size === 0 && !filter.changes) return true;
      let hasStatus = filter.statuses.size === 0;
      const own = [];
      for (let run = 0, begin = 0; run < attribute.ends.length && begin <= to; begin = attribute.ends[run++]) {
        if (attribute.ends[run] <= from) continue;
        const status = attribute.statuses[run];
        hasStatus ||= filter.statuses.has(status);
        if (filter.changes && saysIn(attribute, status)) {
          for (let step = Math.max(begin, from); step < Math.min(attribute.ends[run], to + 1); ++step) own.push(step);
        }
      }
      if (!hasStatus || (filter.changes && own.length === 0)) return false;
      for (const step of own) said.add(step);
      return true;
    });
    columns = [];
    for (let step = from; step <= to; ++step) {
      if (!filter.changes || said.has(step)) columns.push(step);
    }
    active.row = Math.max(0, rows.indexOf(keptAttribute));
    active.column = active.column < 0 ? -1 : columns.indexOf(keptStep);
    count.textContent =
      `${rows.length === attributes.length ? rows.length : `${rows.length} of ${attributes.length}`} attributes, ` +
      `${columns.length === steps.length ? columns.length : `${columns.length} of ${steps.length}`} steps`;
    layOut();
  }

  // ---- the page around the table

  const main = document.querySelector("main");
  document.body.classList.add("live");

  const views = [["Histories", null]];
  for (const [title, id] of [["Steps", "steps"], ["Findings", "findings"]]) views.push([title, document.getElementById(id)]);
  const histories = make("section", { id: "histories", "aria-label": "Histories" });
  histories.style.display = "contents";
  views[0][1] = histories;
  main.prepend(histories);
  const tabs = make("div", { role: "tablist", "aria-label": "Views" });
  document.getElementById("top").append(tabs);
  const findingRows = [...document.querySelectorAll("#findings tbody tr")];
  /** What each finding is, where the table says that it is what the one of its identifier above is, too. */
  const findingTexts = new Map();
  const lastTexts = new Map();
  for (const row of findingRows) {
    const [id, cell] = [row.cells[0].textContent, row.cells[6]];
    if (!cell.querySelector("small")) lastTexts.set(id, cell.textContent);
    findingTexts.set(row, lastTexts.get(id));
  }
  for (const [title, section] of views) {
    const number = section.id === "findings" ? ` (${findingRows.length})` : "";
    const tab = make("button", { role: "tab", type: "button", "aria-controls": section.id, id: `tab-${section.id}` }, title + number);
    tab.addEventListener("click", () => show(section));
    tabs.append(tab);
  }
  tabs.addEventListener("keydown", (event) => {
    const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (!step) return;
    const all = [...tabs.children];
    const next = all[(all.indexOf(document.activeElement) + step + all.length) % all.length];
    next.focus();
    next.click();
  });

  /** Shows one view. */
  function show(section) {
    for (const [, other] of views) {
      const isShown = other === section;
      other.hidden = !isShown;
      const tab = document.getElementById(`tab-${other.id}`);
      tab.setAttribute("aria-selected", String(isShown));
      tab.tabIndex = isShown ? 0 : -1;
    }
    main.classList.toggle("grid", section === histories);
    if (section === histories) layOut();
  }

  // ---- filters

  /** A list to choose from. */
  function choice(label, options, take) {
    const select = make("select", {}, ...options.map(([value, text]) => make("option", { value }, text)));
    select.addEventListener("change", () => {
      take(select.value);
      applyFilters();
    });
    return { select, label: make("label", {}, label, select) };
  }
  const bar = make("div", { id: "filters", role: "search", "aria-label": "Filters" });
  const search = make("input", { type: "search", title: "part of a name, or a pattern with * and ?", id: "name-filter" });
  search.addEventListener("input", () => {
    filter.text = search.value;
    applyFilters();
  });
  const kindChoice = choice("kind", [["", "all"], ...kinds.map((kind) => [kind.name, kind.label])], (value) => {
    filter.kind = value;
    if (filter.type && types.every((type) => type.name !== filter.type || type.kind.name !== value) && value) {
      filter.type = typeChoice.select.value = "";
    }
  });
  const typeNames = [...new Set(types.map((type) => type.name))].sort();
  const typeChoice = choice("type", [["", "all"], ...typeNames.map((name) => [name, name])], (value) => (filter.type = value));
  const stepOptions = steps.map((step, index) => [String(index), `${index} ${step.name}`]);
  const fromChoice = choice("steps", stepOptions, (value) => (filter.from = Number(value)));
  const toChoice = choice("to", stepOptions, (value) => (filter.to = Number(value)));
  toChoice.select.value = String(steps.length - 1);
  const changes = make("input", { type: "checkbox", id: "changes" });
  changes.addEventListener("change", () => {
    filter.changes = changes.checked;
    applyFilters();
  });
  const layout = choice("cells", [["", "as they fit"], ["signs", "signs"], ["words", "words"]], (value) => {
    wordy = value === "" ? null : value === "words";
  });
  const count = make("span", { id: "count", role: "status", "aria-live": "polite" });
  bar.append(make("label", {}, "name", search), kindChoice.label, typeChoice.label, fromChoice.label, toChoice.label);
  bar.append(make("label", { for: "changes", title: "only steps and attributes in which something is said" }, changes, "changes only"));
  bar.append(layout.label);

  const legend = make("div", { id: "legend", role: "group", "aria-label": "Statuses: what the signs mean, and a filter" });
  for (const status of [...used].sort((a, b) => a - b)) {
    const { word, meaning, sign, style } = words[status];
    const button = make("button", { type: "button", "aria-pressed": "false", title: `${meaning}; press to see only attributes that are so in a step shown` });
    button.append(make("span", { class: `sign ${style}`, "aria-hidden": "true" }, sign), word);
    button.addEventListener("click", () => {
      if (!filter.statuses.delete(status)) filter.statuses.add(status);
      button.setAttribute("aria-pressed", String(filter.statuses.has(status)));
      applyFilters();
    });
    legend.append(button);
  }
  legend.append(count);

  // ---- the table

  const grid = make("div", { id: "grid", role: "grid", tabindex: "0", "aria-label": "Histories: attributes by steps" });
  const sizer = make("div", { id: "sizer", role: "presentation" });
  const head = newRow("head");
  head.element.setAttribute("aria-rowindex", "1");
  head.name.textContent = "attribute";
  head.type.textContent = "type";
  head.name.setAttribute("role", "columnheader");
  head.type.setAttribute("role", "columnheader");
  sizer.append(head.element);
  grid.append(sizer);
  const empty = make("p", { id: "empty", hidden: "" }, "No attribute fits the filters.");
  const panel = make("aside", { id: "panel", hidden: "", role: "region", "aria-label": "Values of a cell", tabindex: "-1" });
  const table = make("div", { id: "table" }, grid, panel);
  const told = make("div", { class: "live-region", "aria-live": "polite", id: "told" });
  const keys = make("div", { id: "keys" });
  for (const [key, meaning] of [["↑ ↓ ← →", "move"], ["Enter", "open a cell"], ["Esc", "close"], ["/", "filter by name"], ["Home End", "first and last step"]]) {
    keys.append(make("kbd", {}, key), ` ${meaning}   `);
  }
  histories.append(bar, legend, empty, table, keys, told);

  /** @type {Map<number, Object>} The rows in the document, by their place among those shown. */
  const drawn = new Map();
  /** The columns in the document. */
  const window_ = { left: 0, right: 0 };
  const cursor = make("div", { id: "cursor", role: "gridcell" });
  let columnWidth = 26;
  let leftWidth = 420;
  let isWordy = false;
  let rowHeight = ROW;
  let headHeight = 0;

  /** Makes a row without content. */
  function newRow(style) {
    const element = make("div", { class: `row ${style}`, role: "row" });
    const name = make("div", { class: "name", role: "rowheader", "aria-colindex": "1" });
    const type = make("div", { class: "type", role: "gridcell", "aria-colindex": "2" });
    const cells = make("div", { class: "cells", role: "presentation" });
    element.append(make("div", { class: "fixed", role: "presentation" }, name, type), cells);
    return { element, name, type, cells, attribute: null, place: -1, left: 0, right: 0 };
  }

  /** Takes new filters or a new size: everything is drawn anew. */
  function layOut() {
    if (histories.hidden) return;
    const room = document.documentElement.clientWidth; // not the table's, so that an opened panel moves nothing
    grid.classList.toggle("narrow", room < 700);
    leftWidth = room < 700 ? 150 : 420;
    const longest = Math.max(...[...used].map((status) => words[status].word.length), 6);
    const wordWidth = Math.max(longest * 7 + 18, 96);
    isWordy = wordy ?? columns.length * wordWidth <= (room - leftWidth) * 1.6;
    columnWidth = isWordy ? Math.max(wordWidth, Math.min(170, Math.floor((room - leftWidth) / Math.max(columns.length, 1)))) : 26;
    grid.classList.toggle("words", isWordy);
    grid.classList.toggle("signs", !isWordy);
    grid.setAttribute("aria-rowcount", String(rows.length + 1));
    grid.setAttribute("aria-colcount", String(columns.length + 2));
    rowHeight = Math.min(ROW, MOST_HEIGHT / Math.max(rows.length, 1));
    headHeight = head.element.offsetHeight;
    sizer.style.height = `${headHeight + rows.length * rowHeight}px`;
    sizer.style.width = `${leftWidth + columns.length * columnWidth}px`;
    empty.hidden = rows.length > 0;
    for (const row of drawn.values()) row.element.remove();
    drawn.clear();
    head.left = head.right = 0;
    window_.left = window_.right = 0;
    update();
    if (opened) fillPanel();
  }

  /** Draws what has come into sight and gives away what has gone. */
  function update() {
    // all that is asked of the layout comes before all that changes it
    const { clientHeight, clientWidth, scrollTop, scrollLeft } = grid;
    const height = clientHeight - headHeight;
    const scale = rowHeight === ROW ? 1 : (rows.length * ROW - height) / Math.max(1, rows.length * rowHeight - height);
    const scrolled = scrollTop * scale;
    const top = Math.max(0, Math.floor(scrolled / ROW) - SPARE_ROWS);
    const bottom = Math.min(rows.length, Math.ceil((scrolled + height) / ROW) + SPARE_ROWS);
    const seenLeft = Math.floor(scrollLeft / columnWidth);
    const seenRight = Math.ceil((scrollLeft + clientWidth - leftWidth) / columnWidth);
    if (seenLeft < window_.left || seenRight > window_.right || window_.right === 0) {
      window_.left = Math.max(0, seenLeft - SPARE_COLUMNS);
      window_.right = Math.min(columns.length, Math.max(seenRight, seenLeft) + SPARE_COLUMNS);
    }
    const free = [];
    for (const [place, row] of drawn) {
      if (place >= top && place < bottom) continue;
      free.push(row);
      drawn.delete(place);
    }
    for (let place = top; place < bottom; ++place) {
      let row = drawn.get(place);
      if (!row) {
        row = free.pop();
        if (!row) {
          row = newRow("");
          sizer.append(row.element);
        }
        drawn.set(place, row);
      }
      fillRow(row, place, scrollTop - scrolled);
    }
    for (const row of free) row.element.remove();
    fillHead();
    mark();
  }

  /** Takes a row's cells to where the window is. */
  function placeCells(row) {
    row.cells.style.left = `${leftWidth + window_.left * columnWidth}px`;
    row.element.style.width = sizer.style.width;
    row.left = window_.left;
    row.right = window_.right;
  }

  /** Has a row show the attribute at a place; what it shows already stays. */
  function fillRow(row, place, offset) {
    const attribute = rows[place];
    const at = headHeight + place * ROW + offset;
    if (row.at !== at) {
      row.element.style.transform = `translateY(${at}px)`;
      row.at = at;
    }
    const isSame = row.attribute === attribute;
    if (isSame && row.place === place && row.left === window_.left && row.right === window_.right) return;
    if (row.place !== place) {
      row.element.setAttribute("aria-rowindex", String(place + 2));
      row.element.id = `row-${place}`;
      row.place = place;
    }
    if (!isSame) {
      row.attribute = attribute;
      row.name.textContent = attribute.name;
      row.name.title = `${attribute.name}: ${attribute.kind.label}${attribute.suppressed ? ", suppressed" : ""}`;
      row.type.textContent = attribute.type;
      row.element.classList.toggle("suppressed", attribute.suppressed);
    }
    placeCells(row);
    let cell = row.cells.firstElementChild;
    let run = window_.left < columns.length ? runAt(attribute, columns[window_.left]) : 0;
    for (let column = window_.left, end; column < window_.right; column = end, cell = cell.nextElementSibling) {
      while (attribute.ends[run] <= columns[column]) ++run;
      end = column + 1;
      while (!isWordy && end < window_.right && columns[end] < attribute.ends[run]) ++end;
      if (!cell) {
        cell = make("div", { class: "cell", role: "gridcell" }, "");
        row.cells.append(cell);
      }
      fillCell(cell, column, end - column, attribute.statuses[run], filter.changes && !saysIn(attribute, attribute.statuses[run]));
    }
    while (cell) {
      const next = cell.nextElementSibling;
      cell.remove();
      cell = next;
    }
  }

  /** Has a cell stand for so many steps of one status; what it shows already stays. */
  function fillCell(cell, column, span, status, isBlank) {
    const { word, sign, style } = words[status];
    if (cell.column !== column) cell.setAttribute("aria-colindex", String((cell.column = column) + 3));
    if (cell.span !== span) {
      cell.style.width = `${span * columnWidth}px`;
      cell.setAttribute("aria-colspan", String(span));
    }
    const look = isBlank ? -1 : status;
    if (cell.look !== look) {
      cell.className = isBlank ? "cell" : `cell ${style}`;
      cell.setAttribute("aria-label", word);
    }
    if (cell.look !== look || cell.span !== span) {
      cell.firstChild.nodeValue = isBlank ? "" : isWordy && status !== 0 ? word : sign.repeat(span);
    }
    cell.span = span;
    cell.look = look;
  }

  function fillHead() {
    if (head.left === window_.left && head.right === window_.right) return;
    placeCells(head);
    head.cells.replaceChildren();
    for (let column = window_.left; column < window_.right; ++column) {
      const step = steps[columns[column]];
      const cell = make("div", { class: "cell", role: "columnheader" }, make("b"), make("small"));
      cell.style.width = `${columnWidth}px`;
      head.cells.append(cell);
      cell.firstChild.textContent = step.name;
      cell.lastChild.textContent = step.procedure;
      cell.title = `${columns[column]} ${step.name}: ${step.procedure}`;
      cell.setAttribute("aria-colindex", String(column + 3));
    }
  }

  /** Shows which cell keys move. */
  function mark() {
    for (const old of sizer.querySelectorAll(".name.active, .here")) {
      old.classList.remove("active", "here");
      old.removeAttribute("id");
    }
    const row = drawn.get(active.row);
    const isSeen = active.column >= window_.left && active.column < window_.right;
    if (isSeen) head.cells.children[active.column - window_.left].classList.add("here");
    cursor.remove();
    row?.name.classList.add("active");
    if (row && active.column < 0) {
      row.name.id = "active-name";
      grid.setAttribute("aria-activedescendant", "active-name");
    } else if (row && isSeen) {
      // a cell may stand for many steps: the one among them has a frame of its own
      cursor.style.left = `${leftWidth + active.column * columnWidth}px`;
      cursor.style.width = `${columnWidth}px`;
      cursor.setAttribute("aria-colindex", String(active.column + 3));
      cursor.setAttribute("aria-label", `${steps[columns[active.column]].name}: ${words[statusAt(row.attribute, columns[active.column])].word}`);
      row.element.append(cursor);
      grid.setAttribute("aria-activedescendant", cursor.id);
    } else {
      grid.removeAttribute("aria-activedescendant");
    }
  }

  /** Makes another cell the active one, and has it seen. */
  function moveTo(row, column) {
    active.row = Math.max(0, Math.min(rows.length - 1, row));
    active.column = Math.max(-1, Math.min(columns.length - 1, column));
    const height = grid.clientHeight - headHeight;
    const scale = rowHeight / ROW;
    const top = active.row * ROW * scale;
    if (top < grid.scrollTop) grid.scrollTop = top;
    if (top + ROW > grid.scrollTop + height) grid.scrollTop = top + ROW - height;
    if (active.column >= 0) {
      const left = active.column * columnWidth;
      const width = grid.clientWidth - leftWidth;
      if (left < grid.scrollLeft) grid.scrollLeft = left;
      if (left + columnWidth > grid.scrollLeft + width) grid.scrollLeft = left + columnWidth - width;
    }
    update();
    const attribute = rows[active.row];
    if (attribute) told.textContent = `${attribute.name}${active.column < 0 ? "" : ` in ${steps[columns[active.column]].name}: ${sentence(attribute, columns[active.column])}`}`;
    if (opened) fillPanel();
  }

  /** "modified, u2 -12" */
  function sentence(attribute, step) {
    const own = [];
    for (const [member, { value, origin }] of valuesAt(attribute, step)) {
      if (origin === step) own.push(`${data.members[member][0]} ${shown(value)}`);
    }
    return [words[statusAt(attribute, step)].word, ...own].join(", ");
  }

  let waiting = false;
  grid.addEventListener("scroll", () => {
    if (waiting) return;
    waiting = true;
    requestAnimationFrame(() => {
      waiting = false;
      update();
    });
  });
  new ResizeObserver(() => update()).observe(grid);
  window.addEventListener("resize", () => layOut());

  grid.addEventListener("click", (event) => {
    const element = event.target.closest(".row");
    if (!element || element === head.element) return;
    const place = Number(element.id.slice(4));
    const cell = event.target.closest(".cell");
    const column = cell ? cell.column + Math.floor((event.clientX - cell.getBoundingClientRect().left) / columnWidth) : -1;
    grid.focus();
    opened = true;
    panel.hidden = false;
    moveTo(place, column);
  });

  grid.addEventListener("keydown", (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey) return;
    const page = Math.max(1, Math.floor((grid.clientHeight - headHeight) / ROW) - 1);
    const moves = {
      ArrowUp: [active.row - 1, active.column],
      ArrowDown: [active.row + 1, active.column],
      ArrowLeft: [active.row, active.column - 1],
      ArrowRight: [active.row, active.column + 1],
      PageUp: [active.row - page, active.column],
      PageDown: [active.row + page, active.column],
      Home: [event.shiftKey ? 0 : active.row, event.shiftKey ? active.column : 0],
      End: [event.shiftKey ? rows.length - 1 : active.row, event.shiftKey ? active.column : columns.length - 1],
    };
    if (moves[event.key]) moveTo(...moves[event.key]);
    else if (event.key === "Enter" || event.key === " ") open();
    else return;
    event.preventDefault();
  });

  document.addEventListener("keydown", (event) => {
    const inField = /^(INPUT|SELECT|TEXTAREA)$/.test(document.activeElement?.tagName ?? "");
    if (event.key === "Escape") {
      if (opened) close();
      else if (inField) grid.focus();
    } else if (event.key === "/" && !inField && !event.ctrlKey && !event.metaKey) {
      event.preventDefault();
      show(histories);
      search.focus();
      search.select();
    }
  });
  search.addEventListener("keydown", (event) => {
    if (event.key !== "Enter" && event.key !== "ArrowDown") return;
    event.preventDefault();
    grid.focus();
    moveTo(0, active.column);
  });

  // ---- an opened cell

  function open() {
    if (rows.length === 0) return;
    opened = true;
    panel.hidden = false;
    fillPanel();
  }
  function close() {
    opened = false;
    panel.hidden = true;
    grid.focus();
  }

  /** A button that leads to a step of the attribute. */
  function stepLink(step) {
    const button = make("button", { type: "button", class: "link" }, steps[step].name);
    button.addEventListener("click", () => {
      const column = columns.indexOf(step);
      if (column < 0) return;
      moveTo(active.row, column);
      grid.focus();
    });
    return button;
  }

  /** "Draw-1 to Dwell" */
  function runText(begin, end) {
    return end - begin > 1 ? `${steps[begin].name} to ${steps[end - 1].name}, ${end - begin} steps` : steps[begin].name;
  }

  function memberCell(member) {
    const [name, meaning, unit] = data.members[member];
    return make("th", { scope: "row", title: unit ? `${meaning} (${unit})` : meaning }, name);
  }

  function fillPanel() {
    const attribute = rows[active.row];
    panel.replaceChildren();
    if (!attribute) return;
    const step = active.column < 0 ? -1 : columns[active.column];
    const shut = make("button", { type: "button", "aria-label": "close", title: "close (Esc)" }, "×");
    shut.addEventListener("click", close);
    panel.append(make("header", {}, make("h2", {}, attribute.name), shut));
    panel.append(make("p", { class: "dim" }, `${attribute.kind.label}, ${attribute.type}${attribute.suppressed ? ", suppressed" : ""}`));
    if (step >= 0) panel.append(...cellParts(attribute, step));
    panel.append(...plotParts(attribute, step));
    const fixed = data.says[attribute.fixed];
    if (fixed.length > 0) {
      panel.append(make("h3", {}, "In all steps"));
      const body = make("tbody");
      for (let i = 0; i < fixed.length; i += 2) body.append(make("tr", {}, memberCell(fixed[i]), make("td", {}, shown(fixed[i + 1]))));
      panel.append(make("table", {}, body));
    }
    panel.append(make("h3", {}, "History"));
    const body = make("tbody");
    attribute.ends.forEach((runEnd, run) => {
      const status = attribute.statuses[run];
      const { word, meaning, style } = words[status];
      for (let begin = run === 0 ? 0 : attribute.ends[run - 1], end; begin < runEnd; begin = end) {
        end = saysIn(attribute, status) ? begin + 1 : runEnd; // what steps say stands by itself
        const where = stepLink(begin);
        where.textContent = runText(begin, end);
        const badge = make("span", { class: `badge ${style}`, title: meaning }, word);
        body.append(make("tr", step >= begin && step < end ? { class: "own" } : {}, make("td", {}, badge), make("td", {}, where)));
      }
    });
    panel.append(make("table", {}, body));
    panel.append(...findingParts(attribute));
  }

  function cellParts(attribute, step) {
    const status = statusAt(attribute, step);
    const { word, meaning, style } = words[status];
    const run = runAt(attribute, step);
    const begin = run === 0 ? 0 : attribute.ends[run - 1];
    const line = make("p", {}, make("span", { class: `badge ${style}` }, word), word === meaning ? "" : ` ${meaning}`);
    if (begin < step && !isActive(attribute, status) && status !== 0) line.append(" (", stepLink(begin), ")");
    const parts = [make("h3", {}, `${step} ${steps[step].name}, ${steps[step].procedure}`), line];
    const values = valuesAt(attribute, step);
    if (values.size === 0) return parts;
    const idle = !isActive(attribute, status);
    if (idle) parts.push(make("p", { class: "dim" }, "Not in force here; its values:"));
    const body = make("tbody");
    for (const [member, { value, origin }] of values) {
      const isOwn = origin === step;
      body.append(
        make("tr", { class: isOwn ? "own" : idle ? "idle" : "" }, memberCell(member), make("td", {}, shown(value)), make("td", {}, isOwn ? "set here" : stepLink(origin))),
      );
    }
    const heads = ["member", "value", "set in"].map((text) => make("th", { scope: "col" }, text));
    parts.push(make("table", { id: "cell-values" }, make("thead", {}, make("tr", {}, ...heads)), body));
    return parts;
  }

  function findingParts(attribute) {
    const own = findingsOf.get(attribute.index) ?? [];
    if (own.length === 0) return [];
    const parts = own.map((row) => {
      const [id, severity, , , step, member, , code] = [...row.cells].map((cell) => cell.textContent);
      const what = findingTexts.get(row);
      const where = [step && `in ${step}`, member].filter(Boolean).join(", ");
      const about = `${id} ${where ? `${where}: ` : ""}${what}${code ? ` [${code}]` : ""}`;
      return make("p", { class: row.className }, make("b", {}, severity), ` ${about}`);
    });
    return [make("h3", {}, "Findings"), ...parts];
  }

  // ---- values over steps

  /** The members whose plots are wanted; null: the first few. */
  let plotted = null;

  /** By amplitude its lines, one for each step. */
  const curves = new Map(data.curves.map(([name, lines]) => [name, lines]));

  /** By member the pieces with a number: begin, end, value, whether it is said there. */
  function piecesOf(attribute, wants) {
    const pieces = new Map();
    const open = new Map();
    forEachEvent(attribute, (begin, member, value, origin) => {
      if (open.has(member)) open.get(member).end = begin;
      open.delete(member);
      if (value < 0 || !wants(member, data.values[value])) return;
      const piece = { begin, end: steps.length, value: data.values[value], own: origin === begin };
      if (!pieces.has(member)) pieces.set(member, []);
      pieces.get(member).push(piece);
      open.set(member, piece);
    });
    return pieces;
  }

  /** The points [step and part of it, value, ...] of a value in a step, where its amplitude has a curve; else null. */
  function curveIn(amplitudes, step, value) {
    const name = amplitudes.find((piece) => piece.begin <= step && step < piece.end)?.value;
    const line = curves.get(name)?.[step] ?? -1;
    return line < 0 ? null : data.lines[line].map((number, i) => (i % 2 === 0 ? step + number : value * number));
  }

  /** About so many round numbers from low to high. */
  function ticks(low, high, wanted) {
    const raw = (high - low) / wanted;
    const power = 10 ** Math.floor(Math.log10(raw));
    const step = [1, 2, 5, 10].find((factor) => factor * power >= raw) * power;
    const all = [];
    for (let i = Math.ceil(low / step - 1e-9); i * step <= high + step * 1e-9; ++i) all.push(i * step);
    return all;
  }
  const short = (number) => String(Number(number.toPrecision(6)));

  function plotParts(attribute, step) {
    const pieces = piecesOf(attribute, (_, value) => typeof value === "number");
    const members = [...pieces.keys()];
    if (members.length === 0) return [];
    const names = members.map((member) => data.members[member][0]);
    const wanted = names.filter((name) => plotted !== null && plotted.has(name));
    const telling = names.filter((_, i) => pieces.get(members[i]).some((piece) => piece.value !== 0));
    const chosen = new Set(wanted.length > 0 ? wanted : (telling.length > 0 ? telling : names).slice(0, 6));
    const choices = make("div", { class: "choices", role: "group", "aria-label": "Members in the plot" });
    names.forEach((name, i) => {
      const isChosen = chosen.has(name);
      const button = make("button", { type: "button", "aria-pressed": String(isChosen), class: isChosen ? `p${i % 6}` : "" }, name);
      button.addEventListener("click", () => {
        plotted = new Set(chosen);
        if (!plotted.delete(name)) plotted.add(name);
        fillPanel();
        [...panel.querySelectorAll(".choices button")].find((other) => other.textContent === name)?.focus();
      });
      choices.append(button);
    });
    return [make("h3", {}, "Values over steps"), choices, plot(attribute, pieces, members, chosen, step)];
  }

  function plot(attribute, pieces, members, chosen, step) {
    const box = { left: 52, right: 392, top: 8, bottom: 152 };
    const named = piecesOf(attribute, (_, value) => curves.has(value)); // by the member that names the amplitude
    /** A part of a piece in which one status holds, and its points. */
    const parts = [];
    let low = 0;
    let high = 0;
    members.forEach((member, i) => {
      if (!chosen.has(data.members[member][0])) return;
      for (const piece of pieces.get(member)) {
        for (let begin = piece.begin; begin < piece.end; ) {
          const run = runAt(attribute, begin);
          const end = Math.min(attribute.ends[run], piece.end);
          const idle = !isActive(attribute, attribute.statuses[run]);
          const points = [];
          let curved = false;
          for (let at = begin; at < end; ++at) {
            const curve = idle ? null : curveIn(named.get(data.members[member][3]) ?? [], at, piece.value);
            if (curve) points.push(...curve);
            else points.push(at, piece.value, at + 1, piece.value);
            curved ||= curve !== null;
          }
          for (let k = 1; k < points.length; k += 2) {
            low = Math.min(low, points[k]);
            high = Math.max(high, points[k]);
          }
          parts.push({ member, color: i % 6, begin, end, value: piece.value, own: piece.own && begin === piece.begin, idle, curved, points });
          begin = end;
        }
      }
    });
    if (low === high) high = low + 1;
    const margin = (high - low) * 0.06;
    if (low < 0) low -= margin;
    if (high > 0) high += margin;
    const x = (at) => Math.round((box.left + ((box.right - box.left) * at) / steps.length) * 100) / 100;
    const y = (value) => Math.round((box.bottom - ((box.bottom - box.top) * (value - low)) / (high - low)) * 100) / 100;
    const svg = draw("svg", { viewBox: "0 0 400 180", role: "img", "aria-label": `${[...chosen].join(", ")} of ${attribute.name} over the steps` });
    for (const tick of ticks(low, high, 4)) {
      svg.append(draw("line", { class: "axis", x1: box.left, x2: box.right, y1: y(tick), y2: y(tick) }));
      svg.append(draw("text", { x: box.left - 6, y: y(tick) + 3, "text-anchor": "end" }, short(tick)));
    }
    const every = Math.max(1, Math.ceil(steps.length / 6));
    for (let i = 0; i < steps.length; i += every) {
      svg.append(draw("line", { class: "axis", x1: x(i), x2: x(i), y1: box.bottom, y2: box.bottom + 4 }));
      const name = steps[i].name;
      svg.append(draw("text", { x: x(i) + 1, y: box.bottom + 15 }, name.length > 11 ? `${name.slice(0, 10)}…` : name));
    }
    if (step >= 0) svg.append(draw("line", { class: "now", x1: x(step + 0.5), x2: x(step + 0.5), y1: box.top, y2: box.bottom }));
    for (const part of parts) {
      let path = "";
      for (let k = 0; k < part.points.length; k += 2) path += `${k === 0 ? "M" : "L"}${x(part.points[k])} ${y(part.points[k + 1])}`;
      const line = draw("path", { class: `line p${part.color}${part.idle ? " idle" : ""}`, d: path });
      const text = `${data.members[part.member][0]} ${part.value}${part.curved ? " by its amplitude" : ""} in ${runText(part.begin, part.end)}`;
      line.append(draw("title", {}, text));
      svg.append(line);
    }
    for (const part of parts) {
      if (part.own) svg.append(draw("circle", { class: `p${part.color}`, cx: x(part.begin), cy: y(part.points[1]), r: 3 }));
    }
    return svg;
  }

  // ---- findings lead to their attribute

  const byName = new Map();
  for (const attribute of attributes) byName.set(`${attribute.kind.label} ${attribute.name}`, attribute.index);
  /** By the attribute's place. */
  const findingsOf = new Map();
  for (const row of findingRows) {
    const [, , kind, name, step] = [...row.cells].map((cell) => cell.textContent);
    const index = byName.get(`${kind.replace(" (suppressed)", "")} ${name}`);
    if (index === undefined) continue;
    row.dataset.index = String(index);
    findingsOf.set(index, [...(findingsOf.get(index) ?? []), row]);
    row.tabIndex = 0;
    row.title = "show in the table";
    const go = () => {
      clearFilters();
      show(histories);
      opened = true;
      panel.hidden = false;
      moveTo(index, steps.findIndex((known) => known.name === step));
      grid.focus();
    };
    row.addEventListener("click", go);
    row.addEventListener("keydown", (event) => {
      if (event.key === "Enter") go();
    });
  }

  function clearFilters() {
    Object.assign(filter, { text: "", kind: "", type: "", from: 0, to: steps.length - 1, changes: false });
    filter.statuses.clear();
    for (const button of legend.querySelectorAll("button")) button.setAttribute("aria-pressed", "false");
    for (const { select } of [kindChoice, typeChoice]) select.value = "";
    search.value = "";
    fromChoice.select.value = "0";
    toChoice.select.value = String(steps.length - 1);
    changes.checked = false;
    applyFilters();
  }

  // ---- on paper: the filtered rows, a sign per step

  window.addEventListener("beforeprint", () => {
    document.getElementById("print")?.remove();
    const body = make("tbody");
    for (const attribute of rows) {
      let signs = "";
      columns.forEach((step, i) => (signs += (i > 0 && i % 10 === 0 ? " " : "") + words[statusAt(attribute, step)].sign));
      body.append(make("tr", {}, make("th", { scope: "row" }, attribute.name), make("td", {}, attribute.type + (attribute.suppressed ? " (suppressed)" : "")), make("td", { class: "signs" }, signs)));
    }
    const heads = ["attribute", "type", columns.length > 0 ? `${steps[columns[0]].name} to ${steps[columns[columns.length - 1]].name}` : "steps"];
    const meanings = [...used].sort((a, b) => a - b).map((status) => `${words[status].sign} ${words[status].word}`);
    const part = make("section", { id: "print", "aria-hidden": "true" }, make("h2", {}, `Histories: ${count.textContent}`), make("p", {}, meanings.join(", ")));
    part.append(make("table", {}, make("thead", {}, make("tr", {}, ...heads.map((text) => make("th", {}, text)))), body));
    main.prepend(part);
  });
  window.addEventListener("afterprint", () => document.getElementById("print")?.remove());

  show(histories);
  applyFilters();
  grid.focus({ preventScroll: true });
  performance.mark("drawn");
});
