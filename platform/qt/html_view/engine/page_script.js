// The commands and queries of html_view.h, executed in the page. Appended to page_text.js.
// Commands return the state of the page, of which the view keeps a snapshot.
const reader = (() => {
  const maxAround = 512; // units
  const scroller = () => document.scrollingElement || document.documentElement;
  const selection = () => {
    const chosen = document.getSelection();
    return chosen.rangeCount > 0 ? chosen.getRangeAt(0) : null;
  };
  const selectedSpan = () => {
    const range = selection();
    return range ? pageText.spanOf(range) : {start: 0, length: 0};
  };

  // Including the border.
  function topMargin() {
    const style = getComputedStyle(document.body);
    return Math.round(parseFloat(style.marginTop) + parseFloat(style.borderTopWidth)) || 0;
  }
  // The first line starts below the body's margin; margins of its element are ignored.
  const lineTop = count =>
    Math.round(count <= 0 ? topMargin() - scroller().scrollTop : pageText.boxAt(count).top);

  function state() {
    saveScrollAnchor(); // which may scroll
    const span = selectedSpan();
    return [Math.round(scroller().scrollTop), scroller().clientHeight, topMargin(),
      span.start, span.length, lineTop(span.start), percent(), ...top()];
  }

  // Of html_view.h's PageTop what stands at the top. The text of a page that was not read on is not
  // indexed for it.
  function top() {
    if (scroller().scrollTop <= 0) return [0, 0, "", "", 0];
    const start = Math.max(0, scrollAnchor.start), first = Math.max(0, start - maxAround);
    return [start, topMargin() - lineTop(start), pageText.part(first, start - first), pageText.part(start, maxAround),
      pageText.whole().length];
  }

  const maxScrollTop = () => Math.max(0, scroller().scrollHeight - scroller().clientHeight);
  // 100 as soon as less than a pixel is missing: offsets are fractions.
  const percent = () => scroller().scrollTop >= maxScrollTop() - 1 ? 100
    : Math.floor(100 * scroller().scrollTop / maxScrollTop() + 0.01);
  function scrollToPercent(share) {
    setScrollOffset(0, Math.ceil(maxScrollTop() * share / 100));
    return state();
  }

  function headings(limit) {
    const found = [];
    for (const element of document.body.querySelectorAll("h1, h2, h3, h4, h5, h6")) {
      if (found.length >= limit) break;
      const text = element.textContent.trim();
      if (!text || element.getClientRects().length === 0) continue; // not shown
      const range = document.createRange();
      range.selectNodeContents(element);
      found.push([pageText.spanOf(range).start, Number(element.localName[1]), text.slice(0, 500)]);
    }
    return found;
  }

  // Elements laid out lazily would shift every position when they scroll into view.
  function disableContentVisibility() {
    const mayDefer = sheet => {
      try {
        return [...sheet.cssRules].some(rule => rule.cssText.includes("content-visibility"));
      } catch {
        return true; // rules of a file are not accessible
      }
    };
    const defers = [...document.styleSheets].some(mayDefer) ||
      document.querySelector("[style*=content-visibility]");
    if (!defers) return;
    const sheet = new CSSStyleSheet();
    sheet.replaceSync("* {content-visibility: visible !important}");
    document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
  }

  // Only the document's own scroll offset is restored: an element that scrolls in its place, and its
  // ancestors, are enlarged to the height of their content.
  function expandInnerScroller() {
    const {scrollHeight, clientWidth, clientHeight} = scroller();
    if (scrollHeight > clientHeight) return;
    const scrolls = element => element.scrollHeight > element.clientHeight &&
      element.clientHeight > clientHeight / 2 &&
      /auto|scroll/.test(getComputedStyle(element).overflowY);
    let element = document.elementFromPoint(clientWidth / 2, clientHeight / 2);
    while (element && !scrolls(element)) element = element.parentElement;
    for (; element; element = element.parentElement) {
      const {style} = element;
      for (const name of ["height", "max-height"]) style.setProperty(name, "max-content", "important");
      style.setProperty("overflow", "visible", "important");
      if (getComputedStyle(element).position === "fixed")
        style.setProperty("position", "absolute", "important");
    }
  }

  // Colours the body until `setBackColor`.
  const expectedBackColor = globalThis.norvasetBackColor;
  function expectBackColor(expected) {
    if (expectedBackColor) expectedBackColor.disabled = !expected;
  }

  let ownTextColor = ""; // the body's, in its style attribute
  function ownColors() {
    ownTextColor = document.body.style.color;
    const number = css => {
      const [red, green, blue, opacity = 1] = css.match(/[\d.]+/g) || [];
      return opacity > 0 && blue ? red << 16 | green << 8 | blue : null;
    };
    const background = element => number(getComputedStyle(element).backgroundColor);
    expectBackColor(false);
    const colors = [number(getComputedStyle(document.body).color) ?? 0,
      background(document.body) ?? background(document.documentElement) ?? 0xffffff];
    expectBackColor(true);
    return colors;
  }

  // Also disables what keys or clicks would edit or open.
  function documentInfo() {
    if (!document.body) return null;
    disableContentVisibility();
    expandInnerScroller();
    for (const field of document.querySelectorAll("input[type=file], input[type=color]"))
      field.disabled = true;
    for (const element of document.querySelectorAll("[contenteditable]"))
      element.removeAttribute("contenteditable");
    return [document.characterSet, document.title, pageText.hasAny(), ...ownColors(), state()];
  }

  // The engine truncates scroll offsets to device pixels: so they are rounded here.
  function setScrollOffset(left, top) {
    scrollAnchor = null; // else a width that has just changed would undo this
    const pixel = Math.round(top * devicePixelRatio) + 0.01;
    window.scrollTo({left, top: pixel / devicePixelRatio, behavior: "instant"});
  }
  function scrollTo(left, top) {
    setScrollOffset(left, top);
    return state();
  }
  function scrollSpanToTop(start) {
    setScrollOffset(0, scroller().scrollTop + lineTop(start) - topMargin());
    return state();
  }
  // Words that are elsewhere than at the offset come to the top, and their line is seen as a whole.
  function goToTop(offset, start, above) {
    const slack = 2; // pixels, of what was rounded
    const toLine = hidden =>
      setScrollOffset(0, scroller().scrollTop + lineTop(start) - topMargin() + hidden);
    if (start > 0) toLine(Math.min(above, Math.max(0, Math.round(pageText.boxAt(start).height) - 1)));
    if (offset >= 0) {
      if (start <= 0 || Math.abs(scroller().scrollTop - offset) <= slack) setScrollOffset(0, offset);
      else if (above > 0) toLine(0);
    }
  }
  function bringToTop(offset, start, above) {
    goToTop(offset, start, above);
    if (start > 0 && scroller().scrollTop > 0) setScrollAnchor(start, {offset, above});
    return state();
  }
  function select(start, length) {
    const range = pageText.rangeOf(start, length);
    document.getSelection().setBaseAndExtent(range.startContainer, range.startOffset,
      range.endContainer, range.endOffset);
    scrollIntoView(pageText.boxAt(start));
    return state();
  }
  const selectAll = () => {
    const range = pageText.rangeOf(0, pageText.whole().length);
    document.getSelection().setBaseAndExtent(range.startContainer, range.startOffset,
      range.endContainer, range.endOffset);
    return state();
  };
  function scrollIntoView(box) {
    const nearest = (start, end, size) => start < 0 ? start : Math.min(start, Math.max(0, end - size));
    const {clientWidth, clientHeight, scrollLeft, scrollTop} = scroller();
    const x = nearest(box.left, box.right, clientWidth);
    const y = nearest(box.top, box.bottom, clientHeight);
    if (x !== 0 || y !== 0) setScrollOffset(scrollLeft + x, scrollTop + y);
  }
  function setBackColor(color) {
    document.body.style.backgroundColor = color;
    expectBackColor(false);
    return state();
  }

  function setTextColor(color) {
    document.body.style.color = color || ownTextColor;
    return state();
  }

  // A right click moves the caret, unless it is on the selection.
  function placeCaret(x, y) {
    const range = selection();
    const isOn = box => x >= box.left && x < box.right && y >= box.top && y < box.bottom;
    if (range && [...range.getClientRects()].some(isOn)) return state();
    const place = document.caretRangeFromPoint(x, y);
    if (place) document.getSelection().collapse(place.startContainer, place.startOffset);
    return state();
  }

  // A line of which less than a quarter is seen is none that is read.
  function startAtTop() {
    const top = topMargin();
    for (let y = top + 1; y < scroller().clientHeight; y += 8) { // skips gaps between paragraphs
      const place = document.caretRangeFromPoint(0, y);
      if (!place || !document.body.contains(place.startContainer)) continue;
      const count = pageText.countAt(place.startContainer, place.startOffset, false);
      const {bottom, height} = pageText.boxAt(count);
      if (bottom - top > height / 4) return count;
    }
    return 0;
  }

  // Keeps the line at the top of the view during a zoom and in another width. Until the page is scrolled
  // the anchor is the same character: the start of its line would move further back with each of them.
  let scrollAnchor = null;
  const layout = () => {
    const {scrollTop, scrollHeight, clientWidth} = scroller();
    return [scrollTop, scrollHeight, clientWidth].join();
  };
  // `wanted` is what bringToTop was told beside the character, if that brought it to the top.
  function setScrollAnchor(start, wanted = null) {
    const {clientWidth: width} = scroller(), top = start < 0 ? 0 : pageText.boxAt(start).top;
    scrollAnchor = {start, top, wanted, width, layout: layout()};
  }
  function saveScrollAnchor() {
    if (scrollAnchor && scrollAnchor.layout === layout()) return;
    // At the page's start there is none: who is elsewhere now has scrolled.
    const holds = scrollAnchor && scrollAnchor.start >= 0;
    if (holds && scrollAnchor.width !== scroller().clientWidth) holdScrollAnchor();
    else setScrollAnchor(scroller().scrollTop > 0 ? startAtTop() : -1);
  }
  // The engine keeps a block in its place then, not a line, and tells of it as of scrolling.
  function holdScrollAnchor() {
    const {start, wanted} = scrollAnchor;
    if (!wanted) return goToScrollAnchor();
    goToTop(wanted.offset, start, wanted.above);
    setScrollAnchor(start, wanted);
  }
  function goToScrollAnchor() {
    const anchor = scrollAnchor, {start, top} = anchor, {scrollLeft, scrollTop, clientWidth: width} = scroller();
    // From the page's start no size moves a page; who is elsewhere has scrolled meanwhile.
    if (start >= 0) setScrollOffset(scrollLeft, scrollTop + pageText.boxAt(start).top - top);
    scrollAnchor = {...anchor, width, layout: layout()};
  }
  function restoreScrollAnchor() {
    goToScrollAnchor();
    return state();
  }

  function matchAt(start, searchStart) {
    const box = pageText.boxAt(start);
    return [Math.round(box.left), lineTop(start), lineTop(searchStart)];
  }

  // The selected part, within copies of its ancestors, which determine its style.
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
    documentInfo, state, saveScrollAnchor, restoreScrollAnchor, scrollTo, scrollSpanToTop,
    bringToTop, select, selectAll,
    scrollToPercent, headings, setBackColor, setTextColor, placeCaret, startAtTop, matchAt, selectionHtml,
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
