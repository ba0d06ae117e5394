// The text of a page with the character offsets that html_view.h defines, and the conversion between
// offsets and DOM positions. Runs in an isolated world, and scripts of the page are disabled: so the
// document does not change, and its text is indexed once.
"use strict";
const pageText = (() => {
  const names = list => new Set(list.split(" "));
  const blockNames = names("address article aside blockquote center dd details dialog dir div dl " +
    "dt fieldset figcaption figure footer form frameset h1 h2 h3 h4 h5 h6 header hgroup hr legend " +
    "li main menu nav ol p pre section summary table caption thead tbody tfoot tr td th ul");
  const skippedNames = names("script style template noscript noframes title select textarea " +
    "iframe object audio video canvas svg math");
  const whitespace = /[ \t\n\f\r]+/g;
  const isWhitespace = unit => unit === 32 || (unit >= 9 && unit <= 13 && unit !== 11);
  const isSkipped = element =>
    skippedNames.has(element.localName) || element.hasAttribute("hidden");

  // Calls `visitor` for text nodes, line breaks and block boundaries in document order, until a call
  // returns true. Iterative, because pages may be nested thousands of levels deep.
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

  // Collects the text. A pending space or break is added only if more text follows.
  class Collector {
    nodes = []; // text nodes that count, and line breaks
    starts = []; // of each node in the text
    ends = [];
    pieces = [];
    length = 0;
    pending = "";
    atBreak = true; // after a line feed, or at the start

    edge() {
      if (!this.atBreak) this.pending = "\n";
    }
    lineBreak(node) {
      this.add(node, "\n", this.pending === "\n");
    }
    text(node, isPre) {
      if (isPre) {
        if (node.data) this.add(node, node.data, true);
        return;
      }
      const data = node.data.replace(whitespace, " ");
      if (data.startsWith(" ") && !this.pending && !this.atBreak) this.pending = " ";
      const piece = data.slice(data.startsWith(" ") ? 1 : 0,
        data.endsWith(" ") && data.length > 1 ? -1 : undefined);
      if (!piece) return;
      this.add(node, piece, true);
      if (data.endsWith(" ")) this.pending = " ";
    }
    add(node, piece, withPending) {
      if (withPending && this.pending) this.push(this.pending);
      this.pending = "";
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

  let cachedIndex = null;
  function index() {
    if (cachedIndex) return cachedIndex;
    cachedIndex = new Collector();
    if (document.body) walk(document.body, cachedIndex);
    cachedIndex.text = cachedIndex.pieces.join("");
    cachedIndex.pieces = null;
    return cachedIndex;
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

  // The index of the first element of an ascending list that is greater than `value`.
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

  // Converts a count of characters in a text node to an offset in its data, and back.
  function offsetOf(node, count) {
    if (isPreText(node)) return count;
    const data = node.data;
    let at = 0;
    const skip = () => {
      while (at < data.length && isWhitespace(data.charCodeAt(at))) ++at;
    };
    skip();
    for (; count > 0; --count)
      if (isWhitespace(data.charCodeAt(at))) skip();
      else ++at;
    return at;
  }
  function countBefore(node, offset) {
    if (isPreText(node)) return offset;
    return node.data.slice(0, offset).replace(whitespace, " ").replace(/^ /, "").length;
  }

  // `which` is the method "setStart" or "setEnd".
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

  // The offset of a DOM position. Between text nodes a start belongs to the next one, an end to the
  // previous one.
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

  // The box of the character at an offset, or of its nearest ancestor with a box.
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
