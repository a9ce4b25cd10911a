// The control's commands by their numbers, with their statuses: 0 not supported, 1 disabled, 3 enabled, 7 latched, 11 mixed.
"use strict";

pondera.commands = (() => {
    const kNotSupported = 0, kDisabled = 1, kEnabled = 3, kLatched = 7, kMixed = 11;

    // Commands that the browser's own editor carries out on the text.
    const textCommands = {
        5000: "bold", 5018: "indent", 5023: "italic", 5024: "justifyCenter", 5025: "justifyLeft", 5026: "justifyRight",
        5030: "insertOrderedList", 5031: "outdent", 5042: "backColor", 5044: "fontName", 5045: "fontSize", 5046: "foreColor",
        5048: "underline", 5051: "insertUnorderedList"
    };

    const selection = pondera.selection;
    const spelling = pondera.spelling;
    const level = element => parseInt(getComputedStyle(element).zIndex, 10) || 0;

    function positionedElements() {
        return selection.selectable().filter(selection.isPositioned);
    }

    function nextLevel() {
        return Math.max(0, ...positionedElements().map(level)) + 1;
    }

    function setLevel(element, value) {
        spelling.setStyle(element, { "z-index": value });
    }

    // The elements in the order in which they are painted, lowest first, on the same side of the text as `element`.
    function paintOrder(element) {
        const below = level(element) < 0;
        return positionedElements().filter(e => (level(e) < 0) === below && !e.contains(element) && !element.contains(e) || e === element)
            .map((e, i) => ({ e, i, z: level(e) })).sort((a, b) => a.z - b.z || a.i - b.i).map(entry => entry.e);
    }

    // Exchanges an element with its neighbour in the painting order; equal levels are told apart first.
    function step(element, up) {
        const order = paintOrder(element);
        const at = order.indexOf(element);
        const other = order[at + (up ? 1 : -1)];
        if (!other) return;
        const own = level(element), theirs = level(other);
        if (own !== theirs) {
            setLevel(element, theirs);
            setLevel(other, own);
            return;
        }
        const above = up ? element : other;
        for (const e of order.slice(Math.max(at, order.indexOf(other)) + 1)) setLevel(e, level(e) + 1);
        setLevel(above, own + 1);
    }

    function toFront(element) {
        const order = paintOrder(element);
        if (order[order.length - 1] !== element) setLevel(element, level(order[order.length - 1]) + 1);
    }

    // Under all others, but still above the text: when there is no room below them, they move up by one.
    function toBack(element) {
        const order = paintOrder(element);
        if (order[0] === element) return;
        const lowest = level(order[0]);
        if (lowest > 1 || lowest < 0) {
            setLevel(element, lowest - 1);
            return;
        }
        for (const e of order) if (e !== element) setLevel(e, level(e) + 2 - lowest);
        setLevel(element, 1);
    }

    const elementCommands = {
        5027: element => selection.isLocked(element) ? element.removeAttribute("data-locked") : element.setAttribute("data-locked", "true"),
        5036: element => step(element, false),
        5037: element => step(element, true),
        5038: element => setLevel(element, -Math.max(1, level(element))),
        5039: element => setLevel(element, Math.max(1, -level(element))),
        5040: toBack,
        5041: toFront
    };

    function insertTable(size) {
        const [rows, columns] = String(size || "2x2").split("x").map(n => Math.min(100, Math.max(1, parseInt(n, 10) || 1)));
        const row = "<TR>" + "<TD>&nbsp;</TD>".repeat(columns) + "</TR>";
        pondera.inserting.insert('<TABLE width="100%" border=1 cellspacing=0 cellpadding=4><TBODY>' + row.repeat(rows) + "</TBODY></TABLE>");
    }

    function setLink(address) {
        const element = selection.control();
        if (!element) {
            const range = selection.textRange();
            const link = range && selection.linkOf(range);
            if (link) link.setAttribute("href", address);
            else document.execCommand("createLink", false, address);
            return;
        }
        const link = element.closest("a");
        if (link) {
            link.setAttribute("href", address);
            return;
        }
        const anchor = document.createElement("a");
        anchor.setAttribute("href", address);
        element.replaceWith(anchor);
        anchor.appendChild(element);
    }

    function unlink() {
        const element = selection.control();
        const range = selection.textRange();
        const link = element ? element.closest("a") : range && selection.linkOf(range);
        if (!link) return;
        if (element || range.collapsed) link.replaceWith(...link.childNodes);
        else document.execCommand("unlink");
    }

    function remove() {
        const element = selection.control();
        if (!element) {
            pondera.merging.deleteSelection();
            return;
        }
        selection.select(null);
        withLink(element).remove();
    }

    // An element with the link around it, when the link holds nothing else.
    function withLink(element) {
        const link = element.closest("a");
        return link && link.textContent.trim() === "" && link.querySelectorAll("*").length === 1 ? link : element;
    }

    function selectAll() {
        selection.select(null);
        getSelection().selectAllChildren(selection.entered() || document.body);
    }

    function hasLink() {
        const element = selection.control();
        if (element) return !!element.closest("a");
        const range = selection.textRange();
        return !!range && !!selection.linkOf(range);
    }

    function status(number) {
        const element = selection.control();
        const range = element ? null : selection.textRange();
        const when = condition => (condition ? kEnabled : kDisabled);
        if (textCommands[number]) {
            const name = textCommands[number];
            if (element || !range || !document.queryCommandEnabled(name)) return kDisabled;
            if (number === 5042 || number >= 5044 && number <= 5046) return kEnabled;
            if (document.queryCommandIndeterm(name)) return kMixed;
            return document.queryCommandState(name) ? kLatched : kEnabled;
        }
        switch (number) {
            case 5002: case 5003: case 5004: case 5016: return when(element || range && !range.collapsed);
            case 5022: return when(range);
            case 5027: return !element || !selection.isPositioned(element) ? kDisabled : selection.isLocked(element) ? kLatched : kEnabled;
            case 5028: return !element ? kDisabled : selection.isPositioned(element) ? kLatched : kEnabled;
            case 5032: case 5035: return kEnabled;
            case 5033: return when(pondera.history.canRedo());
            case 5036: case 5037: case 5038: case 5039: case 5040: case 5041: return when(element && selection.isPositioned(element));
            case 5049: return when(pondera.history.canUndo());
            case 5050: return when(hasLink());
            default: return kNotSupported;
        }
    }

    const allowed = number => [kEnabled, kLatched, kMixed].includes(status(number));

    function execute(number, value) {
        if (!allowed(number)) return false;
        if (number === 5049) return pondera.history.undo();
        if (number === 5033) return pondera.history.redo();
        if (number === 5035) {
            selectAll();
            return true;
        }
        pondera.history.step("command " + number, () => {
            if (textCommands[number]) {
                pondera.merging.trimSelection();
                document.execCommand(textCommands[number], false, value);
                            }
            if (elementCommands[number]) elementCommands[number](selection.control());
            else if (number === 5004) remove();
            else if (number === 5016) setLink(value);
            else if (number === 5022) insertTable(value);
            else if (number === 5028) pondera.moving.makeAbsolute(selection.control());
            else if (number === 5050) unlink();
        });
        selection.placeFrame();
        return true;
    }

    function statuses() {
        const all = {};
        for (const number of [5000, 5002, 5003, 5004, 5016, 5018, 5022, 5023, 5024, 5025, 5026, 5027, 5028, 5030, 5031, 5032, 5033, 5035, 5036,
            5037, 5038, 5039, 5040, 5041, 5042, 5044, 5045, 5046, 5048, 5049, 5050, 5051]) all[number] = status(number);
        return all;
    }

    function fontValue(command) {
        if (selection.control() || !selection.textRange()) return "";
        return String(document.queryCommandValue(command)).replace(/["']/g, "");
    }

    return { withLink, status, statuses, execute, nextLevel, remove, fontValue };
})();
