// The reader's side in a page: what html_view.h orders and asks. Follows page_text.js in one script.
// Orders answer the state of the page, which is what the view keeps.
const reader = (() => {
  const scroller = () => document.scrollingElement || document.documentElement;
  const selection = () => {
    const chosen = document.getSelection();
    return chosen.rangeCount > 0 ? chosen.getRangeAt(0) : null;
  };
  const selectedSpan = () => {
    const range = selection();
    return range ? pageText.spanOf(range) : {start: 0, length: 0};
  };

  // The body's margin with its border.
  function topMargin() {
    const style = getComputedStyle(document.body);
    return Math.round(parseFloat(style.marginTop) + parseFloat(style.borderTopWidth)) || 0;
  }
  // The text's first line begins below the margin, whatever its own margins.
  const lineTop = count =>
    Math.round(count <= 0 ? topMargin() - scroller().scrollTop : pageText.boxAt(count).top);

  function state() {
    const span = selectedSpan();
    return [Math.round(scroller().scrollTop), scroller().clientHeight, topMargin(),
      span.start, span.length, lineTop(span.start)];
  }

  // What the document says of itself. Also takes out of it what a press of a key or a click would
  // change or open.
  function facts() {
    if (!document.body) return null;
    for (const field of document.querySelectorAll("input[type=file], input[type=color]"))
      field.disabled = true;
    for (const element of document.querySelectorAll("[contenteditable]"))
      element.removeAttribute("contenteditable");
    return [document.characterSet, document.title, pageText.hasAny(), state()];
  }

  function jump(left, top) {
    window.scrollTo({left, top, behavior: "instant"});
  }
  function scrollTo(left, top) {
    jump(left, top);
    return state();
  }
  function scrollSpanToTop(start) {
    jump(0, scroller().scrollTop + lineTop(start) - topMargin());
    return state();
  }
  function select(start, length) {
    const range = pageText.rangeOf(start, length);
    document.getSelection().setBaseAndExtent(range.startContainer, range.startOffset,
      range.endContainer, range.endOffset);
    reveal(pageText.boxAt(start));
    return state();
  }
  const selectAll = () => {
    const range = pageText.rangeOf(0, pageText.whole().length);
    document.getSelection().setBaseAndExtent(range.startContainer, range.startOffset,
      range.endContainer, range.endOffset);
    return state();
  };
  function reveal(box) {
    const nearest = (start, end, size) => start < 0 ? start : Math.min(start, Math.max(0, end - size));
    const {clientWidth, clientHeight, scrollLeft, scrollTop} = scroller();
    const x = nearest(box.left, box.right, clientWidth);
    const y = nearest(box.top, box.bottom, clientHeight);
    if (x !== 0 || y !== 0) jump(scrollLeft + x, scrollTop + y);
  }
  function setBackColor(color) {
    document.body.style.backgroundColor = color;
    return state();
  }

  // Where a right click puts the caret, unless it is on the selection.
  function placeCaret(x, y) {
    const range = selection();
    const isOn = box => x >= box.left && x < box.right && y >= box.top && y < box.bottom;
    if (range && [...range.getClientRects()].some(isOn)) return state();
    const place = document.caretRangeFromPoint(x, y);
    if (place) document.getSelection().collapse(place.startContainer, place.startOffset);
    return state();
  }

  function startAtTop() {
    const top = topMargin();
    for (let y = top + 1; y < scroller().clientHeight; y += 8) { // over gaps between paragraphs
      const place = document.caretRangeFromPoint(0, y);
      if (!place || !document.body.contains(place.startContainer)) continue;
      const count = pageText.countAt(place.startContainer, place.startOffset, false);
      if (pageText.boxAt(count).bottom > top) return count;
    }
    return 0;
  }

  function matchAt(start, searchStart) {
    const box = pageText.boxAt(start);
    return [Math.round(box.left), lineTop(start), lineTop(searchStart)];
  }

  // The selected part, in copies of the elements around it that say how it looks.
  function selectionHtml() {
    const range = selection();
    if (!range || range.collapsed) return "";
    const other = document.implementation.createHTMLDocument(""); // loads no pictures
    let source = other.createElement("div");
    source.append(other.importNode(range.cloneContents(), true));
    let around = range.commonAncestorContainer;
    if (around.nodeType !== Node.ELEMENT_NODE) around = around.parentElement;
    for (; around && around !== document.body && around !== document.documentElement;
      around = around.parentElement) {
      const copy = other.importNode(around, false), holder = other.createElement("div");
      copy.append(...source.childNodes);
      holder.append(copy);
      source = holder;
    }
    return source.innerHTML;
  }

  return {
    facts, state, scrollTo, scrollSpanToTop, select, selectAll, setBackColor, placeCaret,
    startAtTop, matchAt, selectionHtml,
    selectedText: () => {
      const {start, length} = selectedSpan();
      return pageText.part(start, length);
    },
    wholeText: pageText.whole,
    texts: spans => spans.map(([start, length]) => pageText.part(start, length)),
    pixelRatio: () => window.devicePixelRatio,
  };
})();
globalThis.norvaset = reader;
