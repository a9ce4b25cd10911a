// What the person does with mouse and keyboard, and what the program is told of it.
"use strict";

(() => {
    const selection = pondera.selection;
    const history = pondera.history;

    // The program listens to these lines and then asks for the state. (Timers do not run while page scripts are off.)
    const told = {};
    function tell(what) {
        if (told[what]) return;
        told[what] = true;
        queueMicrotask(() => {
            told[what] = false;
            console.info("pondera:" + what);
        });
    }
    pondera.changed = () => {
        selection.placeFrame();
        tell("changed");
    };
    pondera.moved = () => tell("state");

    const on = (type, listener) => window.addEventListener(type, listener, { capture: true, passive: false });
    const outsideFrame = event => event.target !== pondera.frameHost;

    on("mousedown", event => {
        if (!outsideFrame(event)) return;
        const onScrollBar = event.clientX >= visualViewport.width || event.clientY >= visualViewport.height;
        if (onScrollBar || event.button && pondera.moving.dragging()) return;
        pondera.moving.finish();
        history.commit();
        const element = selection.pickAt(event.clientX, event.clientY, event.target);
        if (!element) {
            selection.leaveEntered(event.target);
            selection.select(null);
            return;
        }
        event.preventDefault();
        selection.select(element);
        if (event.button === 0) pondera.moving.start(event, element);
    });
    on("mousemove", event => pondera.moving.move(event));
    on("mouseup", event => {
        if (event.button === 0 && pondera.moving.finish()) event.preventDefault();
    });
    on("click", event => event.preventDefault());
    on("dblclick", event => {
        const element = selection.control();
        if (!element || !outsideFrame(event)) return;
        event.preventDefault();
        selection.enter(element, event.clientX, event.clientY);
    });
    on("dragstart", event => {
        if (selection.pick(event.target)) event.preventDefault();
    });

    let lastText = { type: "none" };  // where the caret was before an element was selected

    const kArrows = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };

    function nextElement(backwards) {
        const all = selection.selectable();
        if (!all.length) return;
        const at = all.indexOf(selection.control());
        const next = all[(at + (backwards ? all.length - 1 : 1)) % all.length];
        selection.select(next);
        next.scrollIntoView({ block: "nearest" });
    }

    function controlKey(event, element) {
        const plain = !event.ctrlKey && !event.metaKey && !event.altKey;
        if (kArrows[event.key] && plain) {
            const [x, y] = kArrows[event.key], by = event.shiftKey ? 10 : 1;
            pondera.moving.nudge(element, x * by, y * by);
        } else if (event.key === "Escape") {
            if (!pondera.moving.cancel()) selection.restore(lastText);
        } else if (event.key === "Delete" || event.key === "Backspace") {
            pondera.commands.execute(5004);
            selection.restore(lastText);
        } else if (event.key === "Tab") {
            nextElement(event.shiftKey);
        } else if (event.key === "Enter" && element.localName !== "img") {
            const box = element.getBoundingClientRect();
            selection.enter(element, box.left + 4, box.top + 4);
        } else if (!plain || event.key.length > 1) {
            return;
        }
        event.preventDefault();
    }

    on("keydown", event => {
        const key = event.key.toLowerCase();
        if ((event.ctrlKey || event.metaKey) && !event.altKey && (key === "z" || key === "y")) {
            event.preventDefault();
            if (key === "y" || event.shiftKey) history.redo();
            else history.undo();
            return;
        }
        if (event.key === "F6" || (event.key === "Escape" && selection.entered())) {
            event.preventDefault();
            if (event.key === "F6") nextElement(event.shiftKey);
            else selection.select(selection.entered());
            return;
        }
        if ((event.ctrlKey || event.metaKey) && !event.altKey && !event.shiftKey && key === "a") {
            event.preventDefault();
            pondera.commands.execute(5035);
            return;
        }
        const element = selection.control();
        if (element) controlKey(event, element);
        else if (event.key === "Tab" && !event.ctrlKey && !event.altKey) {
            event.preventDefault();
            pondera.tabbing.press(event.shiftKey);
        } else if (kArrows[event.key] || ["Home", "End", "PageUp", "PageDown"].includes(event.key)) history.commit();
    });

    // Own commands carry these out, so that buttons, menus and keys do the same.
    const kFormats = { formatBold: 5000, formatItalic: 5023, formatUnderline: 5048 };

    let afterSpace = false;
    on("beforeinput", event => {
        if (event.inputType === "historyUndo" || event.inputType === "historyRedo") {
            event.preventDefault();
            if (event.inputType === "historyUndo") history.undo();
            else history.redo();
            return;
        }
        if (selection.control()) {
            event.preventDefault();
            return;
        }
        if (kFormats[event.inputType]) {
            event.preventDefault();
            pondera.commands.execute(kFormats[event.inputType]);
            return;
        }
        if (event.inputType === "insertFromDrop" || event.inputType === "deleteByDrag") return;
        if (event.inputType.startsWith("delete")) {
            history.typing("deleting");
            pondera.places.beforeDeleting();
            if (pondera.merging.take(event.inputType.endsWith("Backward"))) event.preventDefault();
            return;
        }
        if (event.inputType === "insertParagraph") {
            history.typing("single");
            if (pondera.merging.breakLineInBox()) {
                event.preventDefault();
                return;
            }
        }
        const text = event.inputType === "insertText" || event.inputType === "insertCompositionText";
        const space = /^\s+$/.test(event.data || "");
        history.typing(text ? "typing" : "single", text && afterSpace && !space);
        afterSpace = text && space;
        if (event.inputType.startsWith("insert")) pondera.merging.take();
    });
    on("input", event => {
        pondera.places.afterDeleting();
        if (event.inputType !== "insertText" && !event.isComposing) pondera.inserting.partParagraphs();
        pondera.changed();
    });

    on("copy", event => put(event));
    on("cut", event => {
        if (put(event)) pondera.commands.execute(5004);
    });
    on("beforecopy", event => selection.control() && event.preventDefault());
    on("beforecut", event => selection.control() && event.preventDefault());

    function put(event) {
        const data = pondera.clipboard.copied();
        if (!data) return false;
        event.preventDefault();
        event.clipboardData.setData("text/html", data.html);
        event.clipboardData.setData("text/plain", data.text);
        return true;
    }

    // The program reads the clipboard itself: it can also hold a picture. The middle button pastes what is selected elsewhere.
    let middle = false;
    on("auxclick", event => event.preventDefault());
    on("mousedown", event => (middle = event.button === 1));
    on("keydown", () => (middle = false));
    on("paste", event => {
        event.preventDefault();
        if (middle) pondera.clipboard.paste(event.clipboardData.getData("text/html"), event.clipboardData.getData("text/plain"));
        else console.info("pondera:paste");
        middle = false;
    });

    // What is dropped from elsewhere is cleaned as what is pasted; words dragged within the page move as they are.
    let draggedHere = false;
    on("dragstart", () => (draggedHere = true));
    on("dragend", () => (draggedHere = false));
    on("drop", event => {
        history.begin("drop");
        if (draggedHere) return;
        event.preventDefault();
        const place = document.caretRangeFromPoint(event.clientX, event.clientY);
        if (place) getSelection().collapse(place.startContainer, place.startOffset);
        pondera.clipboard.paste(event.dataTransfer.getData("text/html"), event.dataTransfer.getData("text/plain"));
    });

    document.addEventListener("selectionchange", () => {
        // The browser puts a caret into a page that gets the focus; beside a selected element it has no meaning.
        if (selection.control() && getSelection().rangeCount) {
            if (getSelection().isCollapsed) getSelection().removeAllRanges();
            else selection.select(null);
        }
        if (!selection.control() && getSelection().rangeCount) lastText = selection.keep();
        history.selectionMoved();
        pondera.moved();
    });
    // A caret that was set while the page had no focus takes no letters until it is set again.
    window.addEventListener("focus", () => {
        const place = selection.keep();
        if (place.type !== "text") return;
        getSelection().removeAllRanges();
        selection.restore(place);
    });
    on("resize", () => selection.placeFrame());
    // Pictures that arrive; their load events do not reach the window.
    document.addEventListener("load", () => selection.placeFrame(), true);

    function state() {
        return {
            statuses: pondera.commands.statuses(), font: pondera.commands.fontValue("fontName"), size: pondera.commands.fontValue("fontSize"),
            modified: history.modified(), selection: selection.type()
        };
    }
    pondera.state = state;

    // The one way in for the program: a function by its dotted name, its arguments, and the result as JSON.
    pondera.call = (name, ...args) => {
        let target = pondera, holder = null;
        for (const part of name.split(".")) [holder, target] = [target, target[part]];
        const result = target.apply(holder, args);
        return JSON.stringify(result === undefined ? null : result);
    };
})();
