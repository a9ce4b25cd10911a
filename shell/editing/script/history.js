// The one door of all changes: every change of the document, whoever makes it, is seen by one observer and becomes a step that can be
// taken back and made again exactly. Nodes keep their identity through undo and redo, so the text comes back byte for byte.
"use strict";

pondera.history = (() => {
    const kMostSteps = 2000;
    const kTypingPause = 1500;  // milliseconds after which typing starts a new step

    let steps = [];
    let position = 0;    // steps[0 .. position) are done, the others undone
    let open = null;     // the step that is being recorded
    let base = {};       // stands for the state before steps[0]
    let saved = base;    // the state that is on disk: the step that led to it
    let kept = { type: "none" };  // the selection before the next change

    const arrived = [];
    const observer = new MutationObserver(mutations => {
        arrived.push(...mutations);
        collect();
    });

    function watch() {
        observer.observe(document.documentElement, {
            subtree: true, childList: true, attributes: true, attributeOldValue: true, characterData: true, characterDataOldValue: true
        });
    }

    function ours(record) {
        if (record.target === pondera.frameHost) return true;
        return record.type === "childList" && [...record.addedNodes, ...record.removedNodes].every(n => n === pondera.frameHost);
    }

    // Observer records hold only old values; the new ones are what the next record of the same place found, or what is there now.
    function withNewValues(records) {
        const later = new Map();
        for (let i = records.length - 1; i >= 0; --i) {
            const record = records[i];
            if (record.type === "childList") continue;
            const places = later.get(record.target) || later.set(record.target, {}).get(record.target);
            const key = record.attribute === undefined ? "" : record.attribute;
            record.after = key in places ? places[key]
                : record.type === "attributes" ? record.target.getAttribute(record.attribute) : record.target.data;
            places[key] = record.before;
        }
        return records;
    }

    function recordOf(mutation) {
        if (mutation.type === "childList") {
            return {
                type: "childList", target: mutation.target, added: [...mutation.addedNodes], removed: [...mutation.removedNodes],
                previous: mutation.previousSibling, next: mutation.nextSibling
            };
        }
        if (mutation.type === "attributes") {
            return { type: "attributes", target: mutation.target, attribute: mutation.attributeName, before: mutation.oldValue };
        }
        return { type: "characterData", target: mutation.target, before: mutation.oldValue };
    }

    // A drag changes one style a hundred times: only its first and last values are worth keeping.
    function append(list, record) {
        const last = list[list.length - 1];
        if (last && (record.type === "attributes" || record.type === "characterData") && last.type === record.type && last.target === record.target &&
            last.attribute === record.attribute) {
            last.after = record.after;
        } else {
            list.push(record);
        }
    }

    function collect() {
        const records = withNewValues([...arrived.splice(0), ...observer.takeRecords()].filter(m => !ours(m)).map(recordOf));
        if (!records.length) return;
        if (!open) open = { label: "change", records: [], before: kept, after: null, time: Date.now() };
        for (const record of records) append(open.records, record);
        pondera.changed();
    }

    // A value outside the document that changes with it; `set` puts one in place.
    function recordValue(set, before, after) {
        collect();
        if (String(before) === String(after)) return;
        open.records.push({ type: "value", set, before, after });
        set(after);
    }

    function commit() {
        collect();
        if (!open) return;
        const step = open;
        open = null;
        step.records = step.records.filter(r => r.type === "childList" || r.before !== r.after);
        if (!step.records.length) return;
        step.after = pondera.selection.keep();
        steps.length = position;
        steps.push(step);
        if (steps.length > kMostSteps) base = steps.shift();
        position = steps.length;
    }

    // Runs a change as one step of its own.
    function step(label, change) {
        commit();
        open = { label, records: [], before: pondera.selection.keep(), after: null, time: Date.now() };
        try {
            return change();
        } finally {
            pondera.inserting.partParagraphs();
            commit();
            kept = pondera.selection.keep();
            pondera.changed();
        }
    }

    // Called before each piece of typing: goes on with the open step when it is the same kind of typing, else begins a new one.
    function typing(kind, startsWord) {
        collect();
        const now = Date.now();
        const goesOn = open && open.label === kind && now - open.time < kTypingPause && !startsWord && kind !== "single";
        if (!goesOn) {
            commit();
            open = { label: kind, records: [], before: pondera.selection.keep(), after: null, time: now };
        }
        open.time = now;
    }

    function insert(target, nodes, next, previous) {
        const before = next && next.parentNode === target ? next
            : previous && previous.parentNode === target ? previous.nextSibling
            : target === document.documentElement ? pondera.frameHost : null;
        for (const node of nodes) target.insertBefore(node, before && before.parentNode === target ? before : null);
    }

    // What nodes hold when they are taken out: the observer does not see what was put into a node before the node itself was put into the page.
    const shapeOf = node => [...node.childNodes].map(child => [child, shapeOf(child)]);

    function setShape(node, shape) {
        const children = shape.map(entry => entry[0]);
        if (children.length !== node.childNodes.length || children.some((child, i) => child !== node.childNodes[i])) {
            node.replaceChildren(...children);
        }
        for (const [child, inner] of shape) setShape(child, inner);
    }

    function apply(record, forward) {
        if (record.type === "childList") {
            for (const node of forward ? record.removed : record.added) node.parentNode?.removeChild(node);
            if (!forward) record.shapes = record.added.map(shapeOf);
            else record.added.forEach((node, i) => setShape(node, record.shapes[i]));
            insert(record.target, forward ? record.added : record.removed, record.next, record.previous);
        } else {
            const value = forward ? record.after : record.before;
            if (record.type === "value") record.set(value);
            else if (record.type === "characterData") record.target.data = value;
            else if (value === null) record.target.removeAttribute(record.attribute);
            else pondera.spelling.setAttribute(record.target, record.attribute, value);
        }
    }

    function replay(records, forward) {
        for (const record of forward ? records : [...records].reverse()) apply(record, forward);
        observer.takeRecords();
    }

    function undo() {
        commit();
        if (!position) return false;
        const taken = steps[--position];
        replay(taken.records, false);
        pondera.selection.restore(taken.before);
        kept = pondera.selection.keep();
        pondera.changed();
        return true;
    }

    function redo() {
        commit();
        if (position === steps.length) return false;
        const made = steps[position++];
        replay(made.records, true);
        pondera.selection.restore(made.after);
        kept = pondera.selection.keep();
        pondera.changed();
        return true;
    }

    // Takes back what the open step has done so far, as if it had never begun.
    function abandon() {
        collect();
        if (open) replay(open.records, false);
        open = null;
        pondera.changed();
    }

    function begin(label) {
        commit();
        open = { label, records: [], before: pondera.selection.keep(), after: null, time: Date.now() };
    }

    function reset() {
        observer.disconnect();
        arrived.length = 0;
        steps = [];
        position = 0;
        open = null;
        base = {};
        saved = base;
        kept = { type: "none" };
        watch();
    }

    const hasOpenChange = () => !!open && open.records.length > 0;
    const current = () => (position ? steps[position - 1] : base);

    return {
        step, recordValue, typing, undo, redo, begin, commit, abandon, reset,
        selectionMoved() { if (!open) kept = pondera.selection.keep(); },
        canUndo() { collect(); return position > 0 || hasOpenChange(); },
        canRedo: () => position < steps.length && !hasOpenChange(),
        markSaved() { commit(); saved = current(); },
        markModified() { saved = {}; },
        modified() { collect(); return hasOpenChange() || current() !== saved; },
        label: () => (open || current() || {}).label || ""
    };
})();
