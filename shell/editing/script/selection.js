// What is selected: nothing, text, or a "control" (an image or a positioned element), which then has a frame with eight handles. The frame
// is drawn in a shadow root behind BODY and is never part of the document's text.
"use strict";

pondera.selection = (() => {
    const kHandles = ["nw", "n", "ne", "e", "se", "s", "sw", "w"];
    // What is one piece and has no text of the page's: pictures, players, and the fields of a form, whose entries are the visitors'.
    const kPieces = "img, embed, object, video, iframe, input, textarea, select, button";
    const kPlayers = "iframe, video, audio, embed, object";  // what is inside of them would take the mouse
    const kSmall = 30;   // px of a side along which three handles have no room
    const kAside = 7;    // px that the frame then stands off

    // Sheets that no page's rules about styles can refuse, and that are not part of the document.
    function sheet(rules) {
        const made = new CSSStyleSheet();
        made.replaceSync(rules);
        return made;
    }

    // Nothing plays or leads away while the page is edited, and what visitors without scripts read is not shown.
    const pageSheet = sheet(`${kPlayers} { pointer-events:none !important } noscript { display:none !important }`);

    const frameSheet = sheet(`
        .frame { position:absolute; box-sizing:border-box; border:1.5px solid #1a66c9; display:none }
        .frame.locked { border-style:dashed; border-color:#8a5a00 }
        .handle { position:absolute; width:9px; height:9px; margin:-5px 0 0 -5px; background:#fff; border:1.5px solid #1a66c9;
                  box-sizing:border-box; border-radius:2px; pointer-events:auto }
        .locked .handle, .narrow .n, .narrow .s, .low .e, .low .w { display:none }
        .guide { position:absolute; background:#e0218a }
        .size { position:absolute; left:50%; top:100%; transform:translate(-50%, 9px); font:12px sans-serif; color:#fff;
                background:#1a66c9; border-radius:3px; padding:1px 6px; white-space:nowrap; display:none }`);

    let control = null;
    let entered = null;  // the positioned element whose text is being edited
    let frame = null;
    let guides = null;

    const position = element => getComputedStyle(element).position;
    const isPositioned = element => position(element) === "absolute" || position(element) === "fixed";
    const isLocked = element => element.getAttribute("data-locked") === "true";

    function positionedAround(element) {
        for (let e = element; e && e !== document.body && e !== document.documentElement; e = e.parentElement) {
            if (isPositioned(e)) return e;
        }
        return null;
    }

    // The element that a click on a node selects; null where a click is meant for the text.
    function pick(node) {
        const element = node && (node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement);
        if (!element || !document.body || !document.body.contains(element) || element === document.body) return null;
        const picture = element.closest(kPieces);
        const positioned = positionedAround(element);
        if (positioned && positioned === entered) return picture;
        return positioned || picture;
    }

    function overText(x, y) {
        const caret = document.caretRangeFromPoint(x, y);
        if (!caret || caret.startContainer.nodeType !== Node.TEXT_NODE) return false;
        const range = document.createRange();
        range.selectNodeContents(caret.startContainer);
        return [...range.getClientRects()].some(r => x >= r.left && x <= r.right && y >= r.top && y <= r.bottom);
    }

    // The elements at a place, topmost first, those that the mouse goes through included.
    function elementsAt(x, y) {
        const players = pageSheet.cssRules[0].style;
        players.removeProperty("pointer-events");
        const elements = document.elementsFromPoint(x, y);
        players.setProperty("pointer-events", "none", "important");
        return elements;
    }

    // As pick, and finds an element that lies under the text where no letter covers it.
    function pickAt(x, y, target) {
        const elements = elementsAt(x, y);
        if (elements[0]?.closest(kPlayers)) target = elements[0];
        const above = pick(target);
        if (above || (entered && entered.contains(target)) || overText(x, y)) return above;
        for (const element of elements) {
            const below = pick(element);
            if (below && below !== entered) return below;
        }
        return null;
    }

    function build() {
        const host = document.createElement("pondera-frame");
        host.setAttribute("contenteditable", "false");
        host.style.cssText = "all:initial; position:absolute; left:0; top:0; width:0; height:0; z-index:2147483647; pointer-events:none";
        const root = host.attachShadow({ mode: "closed" });
        root.adoptedStyleSheets = [frameSheet];
        root.innerHTML = `<div class="guides"></div><div class="frame"><div class="size"></div></div>`;
        document.adoptedStyleSheets = [pageSheet, pondera.places.marks];
        frame = root.querySelector(".frame");
        guides = root.querySelector(".guides");
        for (const name of kHandles) {
            const handle = document.createElement("div");
            handle.className = "handle " + name;
            handle.style.left = name.includes("w") ? "0" : name.includes("e") ? "100%" : "50%";
            handle.style.top = name.includes("n") ? "0" : name.includes("s") ? "100%" : "50%";
            handle.style.cursor = name + "-resize";
            handle.addEventListener("mousedown", event => {
                event.preventDefault();
                if (event.button === 0 && control && !isLocked(control)) pondera.moving.start(event, control, name);
            });
            frame.appendChild(handle);
        }
        pondera.frameHost = host;
    }

    function attachFrame() {
        if (!pondera.frameHost) build();
        document.documentElement.appendChild(pondera.frameHost);
        placeFrame();
    }

    // Where a viewport rectangle lies in the frame host's coordinates.
    function inHost(rect) {
        const origin = pondera.frameHost.getBoundingClientRect();
        return { left: rect.left - origin.left, top: rect.top - origin.top, width: rect.width, height: rect.height };
    }

    function placeFrame() {
        if (!frame) return;
        if (control && !control.isConnected) control = null;
        frame.style.display = control ? "block" : "none";
        if (!control) return;
        const box = inHost(control.getBoundingClientRect());
        if (box.width < kSmall) [box.left, box.width] = [box.left - kAside, box.width + 2 * kAside];
        if (box.height < kSmall) [box.top, box.height] = [box.top - kAside, box.height + 2 * kAside];
        frame.classList.toggle("narrow", box.width < kSmall);
        frame.classList.toggle("low", box.height < kSmall);
        for (const side of ["left", "top", "width", "height"]) frame.style[side] = box[side] + "px";
        frame.classList.toggle("locked", isLocked(control));
    }

    function showSize(text) {
        const label = frame.querySelector(".size");
        label.textContent = text;
        label.style.display = text ? "block" : "none";
    }

    // Lines as {x, from, to} or {y, from, to} in viewport coordinates.
    function showGuides(lines) {
        guides.replaceChildren(...lines.map(line => {
            const guide = document.createElement("div");
            guide.className = "guide";
            const box = inHost(line.x !== undefined ? { left: line.x, top: line.from, width: 1, height: line.to - line.from }
                : { left: line.from, top: line.y, width: line.to - line.from, height: 1 });
            for (const side of ["left", "top", "width", "height"]) guide.style[side] = box[side] + "px";
            return guide;
        }));
    }

    function select(element) {
        if (control === element) return;
        control = element;
        if (element) {
            entered = null;
            getSelection().removeAllRanges();
        }
        placeFrame();
        pondera.moved();
    }

    // Puts the caret into the text of the selected element.
    function enter(element, x, y) {
        if (element.matches(kPieces)) return;
        select(null);
        entered = element;
        const caret = document.caretRangeFromPoint(x, y);
        if (caret && element.contains(caret.startContainer)) getSelection().setBaseAndExtent(caret.startContainer, caret.startOffset,
            caret.startContainer, caret.startOffset);
    }

    function leaveEntered(node) {
        if (entered && !(node && entered.contains(node))) entered = null;
    }

    function keep() {
        if (control) return { type: "control", element: control };
        const s = getSelection();
        if (!s.rangeCount) return { type: "none" };
        return { type: "text", anchor: s.anchorNode, anchorOffset: s.anchorOffset, focus: s.focusNode, focusOffset: s.focusOffset };
    }

    const lengthOf = node => (node.nodeType === Node.TEXT_NODE ? node.data.length : node.childNodes.length);

    function restore(place) {
        if (place && place.type === "control" && place.element.isConnected) {
            select(place.element);
            placeFrame();
            return;
        }
        select(null);
        if (place && place.type === "text" && place.anchor && place.anchor.isConnected && place.focus.isConnected) {
            getSelection().setBaseAndExtent(place.anchor, Math.min(place.anchorOffset, lengthOf(place.anchor)),
                place.focus, Math.min(place.focusOffset, lengthOf(place.focus)));
        }
        placeFrame();
    }

    // The elements that a click can select, in document order.
    function selectable() {
        return [...document.body.querySelectorAll("*")].filter(e => e.matches(kPieces) ? pick(e) === e : isPositioned(e));
    }

    function textRange() {
        const s = getSelection();
        return s.rangeCount && document.body.contains(s.getRangeAt(0).commonAncestorContainer) ? s.getRangeAt(0) : null;
    }

    function elementOf(range) {
        const node = range.commonAncestorContainer;
        return node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
    }

    function linkOf(range) {
        const around = elementOf(range).closest("a[href]");
        if (around) return around;
        return [...document.body.querySelectorAll("a[href]")].find(a => range.intersectsNode(a) && !range.collapsed) || null;
    }

    function type() {
        const range = control ? null : textRange();
        return control ? "control" : range && !range.collapsed ? "text" : "none";
    }

    function describe() {
        if (control) {
            const link = control.closest("a[href]");
            const parent = control.parentElement;
            return {
                type: "control",
                link: link ? link.getAttribute("href") : "",
                element: {
                    tag: control.tagName.toUpperCase(),
                    name: control.getAttribute("name") || "",
                    alt: control.getAttribute("alt") || "",
                    src: control.getAttribute("src") || "",
                    left: control.offsetLeft, top: control.offsetTop, width: control.offsetWidth, height: control.offsetHeight,
                    zIndex: pondera.spelling.styleValue(control, "Z-INDEX"),
                    positioned: isPositioned(control),
                    locked: isLocked(control),
                    outer: pondera.spelling.markup(control),
                    parentTag: parent.tagName.toUpperCase(),
                    parentOuter: parent.localName === "a" ? pondera.spelling.markup(parent) : ""
                }
            };
        }
        const range = textRange();
        if (!range) return { type: "none", link: "", parent: "" };
        const link = linkOf(range);
        const parent = elementOf(range);
        const [red, green, blue] = (String(document.queryCommandValue("foreColor")).match(/\d+/g) || [0, 0, 0]).map(Number);
        const colour = "#" + (0x1000000 + red * 0x10000 + green * 0x100 + blue).toString(16).slice(1).toUpperCase();
        const common = { link: link ? link.getAttribute("href") : "", colour };
        if (range.collapsed) return { type: "none", ...common, parent: "" };
        const holder = document.createElement("div");
        holder.appendChild(range.cloneContents());
        return {
            type: "text", ...common, text: getSelection().toString(), html: pondera.spelling.markup(holder, false),
            parent: parent === document.body ? "" : pondera.spelling.markup(parent)
        };
    }

    return {
        pick, pickAt, select, enter, leaveEntered, keep, restore, attachFrame, placeFrame, showGuides, showSize, selectable, textRange,
        elementOf, linkOf, type, describe, isPositioned, isLocked, positionedAround,
        control: () => (control && control.isConnected ? control : null),
        entered: () => entered
    };
})();
