// Puts markup where the caret is. The browser's own insertion turns FONT into styled SPANs; this one leaves markup as it is, and parts the
// paragraph where blocks go in.
"use strict";

pondera.inserting = (() => {
    const kBlocks = "p, h1, h2, h3, h4, h5, h6, ul, ol, dl, li, dt, dd, table, div, blockquote, pre, hr, center, form, address, fieldset, " +
        "section, article, aside, nav, header, footer, main, figure, figcaption, details, summary, menu, dir";
    const kParted = "p, h1, h2, h3, h4, h5, h6";  // blocks that cannot hold other blocks
    const kScopes = "p, td, th, caption, button, object, template";

    const isEmpty = element => !element.textContent.trim() && !element.querySelector("img, input, embed, object, hr, table, video, iframe");

    function dropPlaceholder(block) {
        const line = block && block.querySelector("br");
        if (line && isEmpty(block) && block.querySelectorAll("br").length === 1) line.remove();
    }

    // The place of the caret after what was selected has gone.
    function caretRange() {
        if (!getSelection().isCollapsed) pondera.merging.deleteSelection();
        return pondera.selection.textRange();
    }

    function caretAfter(node) {
        const last = node.nodeType === Node.ELEMENT_NODE && node.matches(kBlocks) && !node.matches("hr, table") ? node : null;
        if (last) {
            getSelection().selectAllChildren(last);
            getSelection().collapseToEnd();
        } else {
            getSelection().collapse(node.parentNode, [...node.parentNode.childNodes].indexOf(node) + 1);
        }
    }

    function insertBlocks(range, fragment, paragraph) {
        const last = fragment.lastChild;
        const rest = document.createRange();
        rest.setStart(range.startContainer, range.startOffset);
        rest.setEndAfter(paragraph);
        const tail = rest.extractContents();
        paragraph.after(fragment, tail);
        if (isEmpty(paragraph)) paragraph.remove();
        const following = last.nextElementSibling;
        if (following && following.matches(kParted) && isEmpty(following) && !last.matches?.("table, hr")) following.remove();
        caretAfter(last);
    }

    function insert(markup) {
        const template = document.createElement("template");
        template.innerHTML = markup;
        const fragment = document.importNode(template.content, true);
        const range = caretRange();
        pondera.places.dropTakenNames(fragment);
        if (!range || !fragment.lastChild) return;
        const paragraph = pondera.selection.elementOf(range).closest(kParted);
        dropPlaceholder(paragraph);
        const only = fragment.children.length === 1 && fragment.textContent.trim() === fragment.firstElementChild.textContent.trim();
        if (only && paragraph && fragment.firstElementChild.localName === "p") fragment.replaceChildren(...fragment.firstElementChild.childNodes);
        if (paragraph && [...fragment.children].some(e => e.matches(kBlocks))) {
            insertBlocks(range, fragment, paragraph);
            return;
        }
        const last = fragment.lastChild;
        range.insertNode(fragment);
        if (last) caretAfter(last);
    }

    // The innermost elements that stand where the browser would tear the element around them apart, with that element.
    function misplaced() {
        for (const block of document.body.querySelectorAll(kBlocks)) {
            const around = block.parentElement.closest(kScopes);
            if (around && around.localName === "p") return [block, around];
            if (block.matches("h1, h2, h3, h4, h5, h6") && block.parentElement.matches("h1, h2, h3, h4, h5, h6")) return [block, block.parentElement];
        }
        const link = document.body.querySelector("a a");
        return link ? [link, link.parentElement.closest("a")] : null;
    }

    // A paragraph that holds a block, or a link that holds a link, would be torn apart when the page is read again; it is parted here, where
    // undo knows of it.
    function partParagraphs() {
        let found = misplaced();
        if (!found) return;
        const place = pondera.selection.keep();
        for (; found; found = misplaced()) {
            const [inner, outer] = found;
            const rest = document.createRange();
            rest.setStartAfter(inner);
            rest.setEndAfter(outer);
            const tail = rest.extractContents();
            const after = tail.lastChild;
            outer.after(inner, tail);
            for (const part of [outer, after]) if (isEmpty(part)) part.remove();
        }
        pondera.selection.restore(place);
    }

    return { insert, partParagraphs };
})();
