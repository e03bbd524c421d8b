// Leaves a list of every marked text and where it stands in the document, for `render` to read.
document.fonts.ready.then(() => {
  const details = [...document.querySelectorAll("[data-kind]")].map((element) => {
    const text = document.createRange(); // not the element, which may be as wide as its column
    text.selectNodeContents(element);
    const boxes = [...text.getClientRects()];
    const left = Math.min(...boxes.map((box) => box.left));
    const top = Math.min(...boxes.map((box) => box.top));
    const right = Math.max(...boxes.map((box) => box.right));
    const bottom = Math.max(...boxes.map((box) => box.bottom));
    return {
      kind: element.dataset.kind,
      text: element.textContent,
      rect: [left, top, right - left, bottom - top].map(Math.round),
    };
  });
  const list = document.createElement("script");
  list.type = "application/json";
  list.id = "details";
  list.textContent = JSON.stringify(details);
  document.body.append(list);
});
