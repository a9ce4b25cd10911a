// The Tab key in the text: to the next cell of a table, in or out in a list, and some blanks anywhere else.
"use strict";

pondera.tabbing = (() => {
    function toCell(cell, backwards) {
        const table = cell.closest("table");
        const cells = [...table.querySelectorAll("td, th")].filter(c => c.closest("table") === table);
        let next = cells[cells.indexOf(cell) + (backwards ? -1 : 1)];
        if (!next && !backwards) {
            const row = cell.closest("tr"), added = row.cloneNode(true);
            for (const c of added.cells) c.replaceChildren("\u00a0");
            row.after(added);
            next = added.cells[0];
        }
        if (next) getSelection().selectAllChildren(next);
    }

    function press(backwards) {
        const range = pondera.selection.textRange();
        if (!range) return;
        const inner = pondera.selection.elementOf(range).closest("td, th, li");
        pondera.history.step("tab", () => {
            if (inner && inner.localName === "li") document.execCommand(backwards ? "outdent" : "indent");
            else if (inner) toCell(inner, backwards);
            else if (!backwards) document.execCommand("insertText", false, "\u00a0\u00a0\u00a0\u00a0");
        });
    }

    return { press };
})();
