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
        if (value !== level(element)) spelling.setStyle(element, { "z-index": value });
    }

    const sideOf = element => (level(element) < 0 ? -1 : 1);
    const isAfter = (element, other) => !!(other.compareDocumentPosition(element) & Node.DOCUMENT_POSITION_FOLLOWING);

    // The elements on the same side of the text as `element`, from the text outwards.
    function outwards(element) {
        const side = sideOf(element);
        return positionedElements().filter(e => e === element || sideOf(e) === side && !e.contains(element) && !element.contains(e))
            .map((e, i) => ({ e, i, z: level(e) })).sort((a, b) => side * (a.z - b.z || a.i - b.i)).map(entry => entry.e);
    }

    // Gives elements of one side, listed from the text outwards, levels at the distances given or further out, so that each is painted
    // outside of the one before it. Of equal levels the later element is painted higher.
    function arrange(order, distances, side) {
        let reach = 0;
        order.forEach((e, i) => {
            const before = order[i - 1];
            const mayBeEqual = before && (side > 0 ? isAfter(e, before) : isAfter(before, e));
            reach = before ? Math.max(distances[i], mayBeEqual ? reach : reach + 1) : distances[i];
            setLevel(e, side * reach);
        });
    }

    // Exchanges an element with its neighbour in the painting order.
    function step(element, up) {
        const side = sideOf(element), order = outwards(element);
        const from = order.indexOf(element), to = from + (up ? side : -side);
        if (!order[to]) return;
        const distances = order.map(e => side * level(e));
        [order[from], order[to]] = [order[to], order[from]];
        arrange(order, distances, side);
    }

    // Over or under all others, but on its own side of the text: when there is no room, the others make it.
    function toEnd(element, up) {
        const side = sideOf(element), order = outwards(element);
        const outer = up === side > 0;
        const last = outer ? order[order.length - 1] : order[0];
        if (last === element) return;
        const distance = outer ? side * level(last) + 1 : Math.max(1, side * level(last) - 1);
        const rest = order.filter(e => e !== element);
        const distances = rest.map(e => side * level(e));
        if (outer) arrange([...rest, element], [...distances, distance], side);
        else arrange([element, ...rest], [distance, ...distances], side);
    }

    const elementCommands = {
        5027: element => selection.isLocked(element) ? element.removeAttribute("data-locked") : element.setAttribute("data-locked", "true"),
        5036: element => step(element, false),
        5037: element => step(element, true),
        5038: element => level(element) >= 0 && setLevel(element, -Math.max(1, level(element))),
        5039: element => level(element) < 0 && setLevel(element, -level(element)),
        5040: element => toEnd(element, false),
        5041: element => toEnd(element, true)
    };

    function insertTable(size) {
        const [rows, columns] = String(size || "2x2").split("x").map(n => Math.min(100, Math.max(1, parseInt(n, 10) || 1)));
        const row = "<TR>" + "<TD>&nbsp;</TD>".repeat(columns) + "</TR>";
        pondera.inserting.insert('<TABLE width="100%" border=1 cellspacing=0 cellpadding=4><TBODY>' + row.repeat(rows) + "</TBODY></TABLE>");
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
            case 5002: case 5003: case 5004: return when(element || range && !range.collapsed);
            case 5016: return when(element || range && (!range.collapsed || selection.linkOf(range)));
            case 5022: return when(range);
            case 5027: return !element || !selection.isPositioned(element) ? kDisabled : selection.isLocked(element) ? kLatched : kEnabled;
            case 5028: return !element ? kDisabled : selection.isPositioned(element) ? kLatched : kEnabled;
            case 5032: case 5035: return kEnabled;
            case 5033: return when(pondera.history.canRedo());
            case 5036: case 5037: case 5038: case 5039: case 5040: case 5041: return when(element && selection.isPositioned(element));
            case 5049: return when(pondera.history.canUndo());
            case 5050: return when(pondera.links.selected().length);
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
                const list = number === 5030 ? "ol" : number === 5051 ? "ul" : "";
                if (!list || !pondera.lists.toggle(list)) document.execCommand(textCommands[number], false, value);
            }
            if (elementCommands[number]) elementCommands[number](selection.control());
            else if (number === 5004) remove();
            else if (number === 5016) pondera.links.set(value);
            else if (number === 5022) insertTable(value);
            else if (number === 5028) pondera.moving.makeAbsolute(selection.control());
            else if (number === 5050) pondera.links.remove();
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
