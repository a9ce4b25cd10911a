// Puts markup where the caret is. The browser's own insertion turns FONT into styled SPANs; this one leaves markup as it is, and parts the
// paragraph where blocks go in.
"use strict";

pondera.inserting = (() => {
    const kBlocks = "p, h1, h2, h3, h4, h5, h6, ul, ol, dl, table, div, blockquote, pre, hr, center, form";
    const kParted = "p, h1, h2, h3, h4, h5, h6";  // blocks that cannot hold other blocks
    const kInParagraph = kBlocks.split(", ").map(tag => "p > " + tag).join(", ");

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

    // A paragraph that holds a block would be torn apart when the page is read again; it is parted here, where undo knows of it.
    function partParagraphs() {
        const place = pondera.selection.keep();
        for (let block = document.body.querySelector(kInParagraph); block; block = document.body.querySelector(kInParagraph)) {
            const paragraph = block.parentElement;
            const rest = paragraph.cloneNode(false);
            while (block.nextSibling) rest.appendChild(block.nextSibling);
            paragraph.after(block, rest);
            for (const part of [paragraph, rest]) if (isEmpty(part)) part.remove();
        }
        pondera.selection.restore(place);
    }

    return { insert, partParagraphs };
})();
