// The text of a page as html_view.h counts it, and the ways between a count and a place in the
// document. Runs in a world of its own beside a page whose scripts are off, so the document stays
// as it is and its text is read once.
"use strict";
const pageText = (() => {
  const names = list => new Set(list.split(" "));
  const blockNames = names("address article aside blockquote center dd details dialog dir div dl " +
    "dt fieldset figcaption figure footer form frameset h1 h2 h3 h4 h5 h6 header hgroup hr legend " +
    "li main menu nav ol p pre section summary table caption thead tbody tfoot tr td th ul");
  const skippedNames = names("script style template noscript noframes title select textarea " +
    "iframe object audio video canvas svg math");
  const blanks = /[ \t\n\f\r]+/g;
  const isBlank = unit => unit === 32 || (unit >= 9 && unit <= 13 && unit !== 11);
  const isSkipped = element =>
    skippedNames.has(element.localName) || element.hasAttribute("hidden");

  // Tells `visitor` of texts, line breaks and edges of blocks in document order, until one of its
  // functions answers true. By hand and not by recursion: pages may be nested thousands deep.
  function walk(root, visitor) {
    let node = root, preDepth = 0;
    const edge = () => blockNames.has(node.localName) && visitor.edge();
    for (;;) {
      let inside = null;
      if (node.nodeType === Node.TEXT_NODE) {
        if (visitor.text(node, preDepth > 0)) return;
      } else if (node.localName === "br" && !isSkipped(node)) {
        if (visitor.lineBreak(node)) return;
      } else if (node.nodeType === Node.ELEMENT_NODE && !isSkipped(node)) {
        edge();
        if (node.localName === "pre") ++preDepth;
        inside = node.firstChild;
        if (!inside) leave();
      }
      if (inside) {
        node = inside;
        continue;
      }
      while (node !== root && !node.nextSibling) {
        node = node.parentNode;
        leave();
      }
      if (node === root) return;
      node = node.nextSibling;
    }
    function leave() {
      if (node.localName === "pre") --preDepth;
      edge();
    }
  }

  // Puts the pieces together: the blank or break due before a piece comes with it, or not at all.
  class Collector {
    nodes = []; // the texts that count, and the line breaks
    starts = []; // of each in the whole text, and where it ends
    ends = [];
    pieces = [];
    length = 0;
    due = "";
    atBreak = true; // a line feed, or nothing at all, stands before

    edge() {
      if (!this.atBreak) this.due = "\n";
    }
    lineBreak(node) {
      this.add(node, "\n", this.due === "\n");
    }
    text(node, isPre) {
      if (isPre) {
        if (node.data) this.add(node, node.data, true);
        return;
      }
      const data = node.data.replace(blanks, " ");
      if (data.startsWith(" ") && !this.due && !this.atBreak) this.due = " ";
      const piece = data.slice(data.startsWith(" ") ? 1 : 0,
        data.endsWith(" ") && data.length > 1 ? -1 : undefined);
      if (!piece) return;
      this.add(node, piece, true);
      if (data.endsWith(" ")) this.due = " ";
    }
    add(node, piece, withDue) {
      if (withDue && this.due) this.push(this.due);
      this.due = "";
      this.nodes.push(node);
      this.starts.push(this.length);
      this.push(piece);
      this.ends.push(this.length);
      this.atBreak = piece.endsWith("\n");
    }
    push(piece) {
      this.pieces.push(piece);
      this.length += piece.length;
    }
  }

  let kept = null;
  function index() {
    if (kept) return kept;
    kept = new Collector();
    if (document.body) walk(document.body, kept);
    kept.text = kept.pieces.join("");
    kept.pieces = null;
    return kept;
  }

  function hasAny() {
    let found = false;
    walk(document.body, {
      edge: () => {},
      lineBreak: () => found = true,
      text: (node, isPre) => found = isPre ? node.length > 0 : /[^ \t\n\f\r]/.test(node.data),
    });
    return found;
  }

  // The number of the first element of a rising list that is above `value`.
  function firstAbove(list, value) {
    let low = 0, high = list.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (list[middle] > value) high = middle;
      else low = middle + 1;
    }
    return low;
  }

  const isPreText = node => node.parentElement.closest("pre") !== null;

  // The place in a text node behind so many of its counted characters, and the way back.
  function offsetOf(node, count) {
    if (isPreText(node)) return count;
    const data = node.data;
    let at = 0;
    const skip = () => {
      while (at < data.length && isBlank(data.charCodeAt(at))) ++at;
    };
    skip();
    for (; count > 0; --count)
      if (isBlank(data.charCodeAt(at))) skip();
      else ++at;
    return at;
  }
  function countBefore(node, offset) {
    if (isPreText(node)) return offset;
    return node.data.slice(0, offset).replace(blanks, " ").replace(/^ /, "").length;
  }

  // Sets one end of `range` (by its methods' names "setStart" or "setEnd") to a count.
  function setEdge(range, which, count) {
    const {nodes, starts, ends} = index();
    if (nodes.length === 0) return range[which](document.body, 0);
    let i = Math.max(0, firstAbove(starts, count) - 1);
    if (which === "setEnd" && i > 0 && ends[i - 1] === count) --i;
    const node = nodes[i], inside = Math.max(0, Math.min(count, ends[i]) - starts[i]);
    if (node.nodeType === Node.TEXT_NODE) range[which](node, offsetOf(node, inside));
    else range[which + (inside > 0 ? "After" : "Before")](node);
  }
  function rangeOf(start, length) {
    const range = document.createRange();
    setEdge(range, "setStart", start);
    if (length > 0) setEdge(range, "setEnd", start + length);
    else range.collapse(true);
    return range;
  }

  // The count of a place in the document. Between texts a start belongs to the next one, an end to
  // the one before.
  function countAt(container, offset, isEnd) {
    const {nodes, starts, ends} = index();
    const probe = document.createRange();
    probe.setStart(container, offset);
    let low = 0, high = nodes.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (probe.comparePoint(nodes[middle], 0) <= 0) low = middle + 1;
      else high = middle;
    }
    if (low === 0) return 0;
    const i = low - 1, inside = nodes[i] === container && container.nodeType === Node.TEXT_NODE;
    if (inside) return Math.min(ends[i], starts[i] + countBefore(container, offset));
    return isEnd || low === nodes.length ? ends[i] : starts[low];
  }
  function spanOf(range) {
    const start = countAt(range.startContainer, range.startOffset, false);
    if (range.collapsed) return {start, length: 0};
    const end = countAt(range.endContainer, range.endOffset, true);
    return {start, length: Math.max(0, end - start)};
  }

  // The box of the character at a count, or of what holds it where it has none itself.
  function boxAt(count) {
    const {nodes, starts, ends} = index();
    if (nodes.length === 0) return document.body.getBoundingClientRect();
    const i = Math.max(0, firstAbove(starts, count) - 1);
    const within = Math.max(starts[i], Math.min(count, ends[i] - 1));
    const boxes = [...rangeOf(within, 1).getClientRects()];
    const box = boxes.find(each => each.width > 0) || boxes[0];
    if (box) return box;
    let holder = nodes[i].parentElement;
    while (holder !== document.body && holder.getClientRects().length === 0)
      holder = holder.parentElement;
    return holder.getBoundingClientRect();
  }

  return {
    whole: () => index().text,
    part: (start, length) => index().text.substr(start, length),
    hasAny, rangeOf, spanOf, countAt, boxAt,
  };
})();
