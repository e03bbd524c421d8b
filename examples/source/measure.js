// Leaves in the document what a picture of it shows, for `render` to read: the marked texts as plain boxes
// (`details`), and all text sorted into what must be hidden, what must stay and what counts neither way
// (`truth`). Lengths are in layout pixels.
document.fonts.ready.then(() => {
  const canvas = document.createElement("canvas").getContext("2d");

  const box = (rects) => {
    const left = Math.min(...rects.map((rect) => rect.left));
    const top = Math.min(...rects.map((rect) => rect.top));
    const right = Math.max(...rects.map((rect) => rect.right));
    const bottom = Math.max(...rects.map((rect) => rect.bottom));
    return [left, top, right - left, bottom - top];
  };

  const contentBox = (element) => {
    const text = document.createRange(); // not the element, which may be as wide as its column
    text.selectNodeContents(element);
    return box([...text.getClientRects()]);
  };

  // The text of one node on one line: as wide as its advance, as high as its ink.
  const piece = (characters, style) => {
    while (characters.length && !characters[0].text.trim()) characters.shift();
    while (characters.length && !characters.at(-1).text.trim()) characters.pop();
    if (!characters.length) return [];
    const text = characters.map((character) => character.text).join("").replace(/\s+/g, " ");
    const [left, top, width] = box(characters.map((character) => character.rect));
    canvas.font = `${style.fontStyle} ${style.fontWeight} ${style.fontSize} ${style.fontFamily}`;
    const ink = canvas.measureText(text);
    const baseline = top + ink.fontBoundingBoxAscent;
    const height = ink.actualBoundingBoxAscent + ink.actualBoundingBoxDescent;
    return [{ text, baseline, rect: [left, baseline - ink.actualBoundingBoxAscent, width, height] }];
  };

  const pieces = (node) => {
    const style = getComputedStyle(node.parentElement);
    const range = document.createRange();
    const found = [];
    let line = [];
    let offset = 0;
    for (const text of node.data) {
      range.setStart(node, offset);
      range.setEnd(node, (offset += text.length));
      const rect = range.getClientRects()[0];
      if (!rect || (!rect.width && text.trim())) continue;
      if (line.length && Math.abs(rect.top - line.at(-1).rect.top) > 2) {
        found.push(...piece(line, style));
        line = [];
      }
      line.push({ text, rect });
    }
    return [...found, ...piece(line, style)];
  };

  // What one marked element shows, one piece for each line.
  const joined = (parts) => {
    const lines = [];
    for (const part of parts) {
      const last = lines.at(-1);
      if (last && Math.abs(last.baseline - part.baseline) < 2) {
        const [left, top, width, height] = last.rect;
        const right = part.rect[0] + part.rect[2];
        const bottom = Math.max(top + height, part.rect[1] + part.rect[3]);
        const upper = Math.min(top, part.rect[1]);
        last.rect = [left, upper, right - left, bottom - upper];
        last.text += part.text;
      } else {
        lines.push({ ...part });
      }
    }
    return lines;
  };

  const truth = { spans: [], plain: [], plain_text: [], ignore: [], ignore_text: [] };
  const partsOf = new Map();
  const nodes = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (nodes.nextNode()) {
    const node = nodes.currentNode;
    if (!node.data.trim() || node.parentElement.closest("script, style")) continue;
    const marked = node.parentElement.closest("[data-kind], [data-neutral]");
    if (marked?.dataset.kind) partsOf.set(marked, [...(partsOf.get(marked) ?? []), ...pieces(node)]);
    if (marked?.dataset.kind && marked.dataset.kind !== "decoy") continue;
    for (const { text, rect } of pieces(node)) {
      const isPlain = !marked?.matches("[data-neutral]") && /[\p{L}\p{N}]/u.test(text);
      truth[isPlain ? "plain" : "ignore"].push(rect);
      truth[isPlain ? "plain_text" : "ignore_text"].push(text);
    }
  }
  for (const [element, parts] of partsOf) {
    const lines = joined(parts);
    const span = {
      kind: element.dataset.kind,
      text: lines.map((line) => line.text).join(" "),
      rects: lines.map((line) => line.rect),
      must_hide: element.dataset.kind !== "decoy",
    };
    if (lines.length > 1) span.lines = lines.map((line) => line.text);
    truth.spans.push(span);
  }

  const details = [...document.querySelectorAll("[data-kind]")].map((element) => ({
    kind: element.dataset.kind,
    text: element.textContent,
    rect: contentBox(element).map(Math.round),
  }));

  for (const [id, content] of Object.entries({ details, truth })) {
    const list = document.createElement("script");
    list.type = "application/json";
    list.id = id;
    list.textContent = JSON.stringify(content);
    document.body.append(list);
  }
});
