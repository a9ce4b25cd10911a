// Moving and sizing the selected element with the mouse and the arrow keys, with guide lines at the edges and centres of the other elements
// and of the page, to which it snaps (Alt lets it off).
"use strict";

pondera.moving = (() => {
    const kSnap = 6;        // px within which an edge snaps
    const kThreshold = 3;   // px that the mouse must travel before a click becomes a drag
    const kMostOthers = 300;
    const kEdge = 24;       // px from the window's edge where dragging scrolls
    const kScroll = 12;     // px that it scrolls at a time
    const kTick = 20;       // milliseconds between two times

    const spelling = pondera.spelling;
    let drag = null;

    const px = value => Math.round(value) + "px";
    const number = value => parseFloat(value) || 0;

    function usedLength(element, property) {
        const value = getComputedStyle(element)[property];
        if (value.endsWith("px")) return parseFloat(value);
        return property === "left" ? element.offsetLeft : property === "top" ? element.offsetTop : 0;
    }

    // How large one pixel of the element's surroundings is on the screen.
    function scaleAround(element) {
        const around = element.offsetParent;
        const scale = around && around.offsetWidth ? around.getBoundingClientRect().width / around.offsetWidth : 1;
        return scale > 0 && Math.abs(scale - 1) > 0.02 ? scale : 1;
    }

    // Gives an element of the text flow a place of its own where it stands.
    function makeAbsolute(element) {
        if (pondera.selection.isPositioned(element)) return;
        const before = element.getBoundingClientRect();
        spelling.setStyle(element, { "z-index": pondera.commands.nextLevel(), left: "0px", position: "absolute", top: "0px" });
        const now = element.getBoundingClientRect();
        spelling.setStyle(element, { left: px(before.left - now.left), top: px(before.top - now.top) });
    }

    function lines(rect) {
        return {
            x: [rect.left, (rect.left + rect.right) / 2, rect.right],
            y: [rect.top, (rect.top + rect.bottom) / 2, rect.bottom]
        };
    }

    function candidates(element) {
        const others = pondera.selection.selectable().filter(e => e !== element && !element.contains(e) && !e.contains(element));
        const rects = others.slice(0, kMostOthers).map(e => e.getBoundingClientRect()).filter(r => r.width > 1 && r.height > 1);
        rects.push(document.body.getBoundingClientRect());
        return rects.map(r => ({ left: r.left + scrollX, right: r.right + scrollX, top: r.top + scrollY, bottom: r.bottom + scrollY }));
    }

    // The smallest shift that brings one of `own` onto a line of the others; 0 when none is near.
    function snap(own, axis, others) {
        let best = 0, nearest = kSnap + 1;
        for (const rect of others) {
            for (const line of lines(rect)[axis]) {
                for (const edge of own) {
                    const shift = line - edge;
                    if (Math.abs(shift) < nearest) [best, nearest] = [shift, Math.abs(shift)];
                }
            }
        }
        return best;
    }

    function guideLines(box, others) {
        const found = [];
        for (const axis of ["x", "y"]) {
            const [from, to] = axis === "x" ? ["top", "bottom"] : ["left", "right"];
            for (const edge of lines(box)[axis]) {
                const hits = others.filter(r => lines(r)[axis].some(line => Math.abs(line - edge) < 0.75));
                if (!hits.length) continue;
                const shift = axis === "x" ? -scrollX : -scrollY;
                const cross = axis === "x" ? -scrollY : -scrollX;
                found.push({
                    [axis]: edge + shift, from: Math.min(box[from], ...hits.map(r => r[from])) + cross,
                    to: Math.max(box[to], ...hits.map(r => r[to])) + cross
                });
            }
        }
        return found;
    }

    function pageBox(element) {
        const r = element.getBoundingClientRect();
        return { left: r.left + scrollX, right: r.right + scrollX, top: r.top + scrollY, bottom: r.bottom + scrollY };
    }

    // Writes the place of an element as its left and top edge alone, which is what moving and sizing change. What stretched or hung between
    // the edges of the page keeps the size that it has.
    function pin(element) {
        if (!pondera.selection.isPositioned(element)) return;
        const used = getComputedStyle(element), written = element.computedStyleMap();
        const isOpen = property => String(written.get(property)) === "auto";
        const changes = {};
        for (const [near, far, size] of [["left", "right", "width"], ["top", "bottom", "height"]]) {
            if (isOpen(far)) continue;
            changes[near] = px(usedLength(element, near));
            changes[far] = spelling.styleValue(element, far) ? null : "auto";
            if (isOpen(size)) changes[size] = Math.ceil(number(used[size])) + "px";
        }
        spelling.setStyle(element, changes);
    }

    // How far an edge may be moved: nothing leaves the page to the left or above, where no visitor could see it.
    const inPage = (shift, edge) => Math.max(shift, Math.min(0, -edge));
    const isFixed = element => getComputedStyle(element).position === "fixed";
    const edges = element => (isFixed(element) ? element.getBoundingClientRect() : pageBox(element));

    const shifted = (box, dx, dy) => ({ left: box.left + dx, right: box.right + dx, top: box.top + dy, bottom: box.bottom + dy });

    function start(event, element, handle = "") {
        drag = { element, handle, x: event.clientX + scrollX, y: event.clientY + scrollY, started: false };
    }

    function begin() {
        pondera.history.begin("drag");
        drag.started = true;
        if (!drag.handle) makeAbsolute(drag.element);
        pin(drag.element);
        const style = getComputedStyle(drag.element);
        Object.assign(drag, {
            fixed: isFixed(drag.element), scale: scaleAround(drag.element), edges: edges(drag.element),
            left: usedLength(drag.element, "left"), top: usedLength(drag.element, "top"),
            width: number(style.width), height: number(style.height), box: pageBox(drag.element), others: candidates(drag.element)
        });
    }

    function move(event) {
        if (!drag) return;
        if (!(event.buttons & 1)) {
            finish();  // the button was let go where no one could see it
            return;
        }
        event.preventDefault();
        const dx = event.clientX + scrollX - drag.x;
        const dy = event.clientY + scrollY - drag.y;
        if (!drag.started) {
            if (Math.hypot(dx, dy) < kThreshold || pondera.selection.isLocked(drag.element)) return;
            begin();
        }
        if (drag.handle) sizeBy(dx, dy, event);
        else moveBy(dx, dy, event);
        pondera.selection.placeFrame();
        scrollAtEdge(event);
    }

    function moveBy(dx, dy, event) {
        let free = { x: true, y: true };
        if (event.shiftKey) free = Math.abs(dx) > Math.abs(dy) ? { x: true } : { y: true };
        dx = free.x ? inPage(dx, drag.edges.left) : 0;
        dy = free.y ? inPage(dy, drag.edges.top) : 0;
        if (!event.altKey) {
            const box = shifted(drag.box, dx, dy);
            if (free.x) dx = inPage(dx + snap(lines(box).x, "x", drag.others), drag.edges.left);
            if (free.y) dy = inPage(dy + snap(lines(box).y, "y", drag.others), drag.edges.top);
        }
        const left = Math.round(drag.left + dx / drag.scale), top = Math.round(drag.top + dy / drag.scale);
        spelling.setStyle(drag.element, { left: px(left), top: px(top) });
        pondera.selection.showGuides(event.altKey ? [] : guideLines(pageBox(drag.element), drag.others));
        pondera.selection.showSize(left + ", " + top);
    }

    function sizeBy(dx, dy, event) {
        const handle = drag.handle;
        const west = handle.includes("w"), north = handle.includes("n");
        const corner = handle.length === 2;
        let growX = west ? -inPage(dx, drag.edges.left) : handle.includes("e") ? dx : 0;
        let growY = north ? -inPage(dy, drag.edges.top) : handle.includes("s") ? dy : 0;
        if (!event.altKey) {
            if (growX) growX += (west ? -1 : 1) * snap([west ? drag.box.left - growX : drag.box.right + growX], "x", drag.others);
            if (growY) growY += (north ? -1 : 1) * snap([north ? drag.box.top - growY : drag.box.bottom + growY], "y", drag.others);
        }
        let width = Math.max(1, drag.width + growX / drag.scale), height = Math.max(1, drag.height + growY / drag.scale);
        const proportional = corner && drag.element.localName === "img" && !event.shiftKey;
        if (proportional && drag.width && drag.height) {
            const byWidth = width / drag.width, byHeight = height / drag.height;
            const scale = Math.abs(byWidth - 1) > Math.abs(byHeight - 1) ? byWidth : byHeight;  // as the mouse went most
            width = Math.max(1, drag.width * scale);
            height = Math.max(1, drag.height * scale);
        }
        // A picture would follow in proportion if one of its lengths were left open.
        const picture = drag.element.localName === "img";
        setSize(drag.element, (handle === "n" || handle === "s") && !picture ? null : width,
            (handle === "e" || handle === "w") && !picture ? null : height);
        const place = {};
        if (pondera.selection.isPositioned(drag.element)) {
            if (west) place.left = px(drag.left + drag.width - width);
            if (north) place.top = px(drag.top + drag.height - height);
        }
        spelling.setStyle(drag.element, place);
        pondera.selection.showGuides(event.altKey || proportional ? [] : guideLines(pageBox(drag.element), drag.others));
        pondera.selection.showSize(Math.round(width) + " × " + Math.round(height));
    }

    // Writes a size where the element keeps it: in its attributes if it has them there, else in its style.
    function setSize(element, width, height) {
        for (const [key, value] of [["width", width], ["height", height]]) {
            if (value === null) continue;
            if (element.hasAttribute(key) && !spelling.styleValue(element, key)) element.setAttribute(key, String(Math.round(value)));
            else spelling.setStyle(element, { [key]: px(value) });
        }
    }

    // Scrolls as long as the mouse is held at the window's edge. There are no timers here; an animation's end is a clock as well.
    function scrollAtEdge(event) {
        const by = (at, size) => (at > size - kEdge ? kScroll : at < kEdge ? -kScroll : 0);
        const right = by(event.clientX, innerWidth), down = by(event.clientY, innerHeight);
        drag.clock?.cancel();
        if (drag.fixed || !right && !down) return;
        const held = drag;
        drag.clock = pondera.frameHost.animate(null, kTick);
        drag.clock.onfinish = () => {
            if (drag !== held) return;
            const [x, y] = [scrollX, scrollY];
            scrollBy(right, down);
            if (scrollX !== x || scrollY !== y) move(event);
        };
    }

    function finish() {
        if (!drag) return false;
        const { started } = drag;
        drag = null;
        pondera.selection.showGuides([]);
        pondera.selection.showSize("");
        if (started) pondera.history.commit();
        pondera.selection.placeFrame();
        pondera.moved();
        return true;
    }

    function cancel() {
        if (!drag) return false;
        const { started } = drag;
        drag = null;
        if (started) pondera.history.abandon();
        pondera.selection.showGuides([]);
        pondera.selection.showSize("");
        pondera.selection.placeFrame();
        return true;
    }

    function nudge(element, dx, dy) {
        if (pondera.selection.isLocked(element)) return;
        pondera.history.typing("nudge");
        makeAbsolute(element);
        pin(element);
        const { left, top } = edges(element);
        spelling.setStyle(element, {
            left: px(usedLength(element, "left") + inPage(dx, left)), top: px(usedLength(element, "top") + inPage(dy, top))
        });
        pondera.selection.placeFrame();
    }

    return { start, move, finish, cancel, nudge, makeAbsolute, dragging: () => !!drag };
})();
