// Takes away text over the edges of paragraphs. The browser's own editor lets a selection that reaches just over an edge (three clicks do
// that) swallow the next paragraph, and dresses text that joins another paragraph in the look of its old one; here paragraphs stay apart
// until they are joined, and joined text takes on the look of where it comes to stand.
"use strict";

pondera.merging = (() => {
    const kBlocks = "p, h1, h2, h3, h4, h5, h6, li, td, th, div, blockquote, pre, dd, dt, center, body";
    const kJoined = "p, h1, h2, h3, h4, h5, h6, li, div, pre, center";
    const kContent = "img, br, hr, embed, object, input, video, iframe, table";

    function blockOf(node) {
        const element = node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
        return element.closest(kBlocks) || document.body;
    }

    // A block that holds words and no other blocks.
    const isLeaf = element => element.matches(kJoined) && !element.querySelector(kBlocks + ", ul, ol, table");
    const isEmpty = element => !element.textContent.trim() && !element.querySelector(kContent.replace("br, ", ""));

    // The first and last letters or pictures within a range, as [node, from, to]; from and to are a text node's part in it.
    function contentOf(range) {
        const walker = document.createTreeWalker(range.commonAncestorContainer, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_ELEMENT);
        let first = null, last = null;
        for (let node = walker.currentNode; node; node = walker.nextNode()) {
            if (!range.intersectsNode(node)) continue;
            let part = null;
            if (node.nodeType === Node.TEXT_NODE) {
                const from = node === range.startContainer ? range.startOffset : 0;
                const to = node === range.endContainer ? range.endOffset : node.data.length;
                if (node.data.slice(from, to).trim()) part = [node, from, to];
            } else if (node.matches(kContent)) {
                part = [node, 0, 0];
            }
            if (!part) continue;
            first = first || part;
            last = part;
        }
        return [first, last];
    }

    // Takes from the selection what lies outside the paragraphs that it has letters of.
    function trimSelection() {
        const range = pondera.selection.textRange();
        if (!range || range.collapsed || blockOf(range.startContainer) === blockOf(range.endContainer)) return;
        const [first, last] = contentOf(range);
        if (!first || first[0].nodeType !== Node.TEXT_NODE || last[0].nodeType !== Node.TEXT_NODE) return;
        const start = blockOf(first[0]) === blockOf(range.startContainer) ? [range.startContainer, range.startOffset] : first;
        const end = blockOf(last[0]) === blockOf(range.endContainer) ? [range.endContainer, range.endOffset] : [last[0], last[2]];
        getSelection().setBaseAndExtent(start[0], start[1], end[0], end[1]);
    }

    // Moves the words of `second` to the end of `first`; the caret comes between them.
    function join(first, second) {
        if (isEmpty(first)) first.replaceChildren();
        const caret = first.childNodes.length;
        if (!isEmpty(second)) first.append(...second.childNodes);
        const list = second.parentElement;
        second.remove();
        if (list.matches("ul, ol") && !list.children.length) list.remove();
        if (!first.childNodes.length) first.append(document.createElement("br"));
        getSelection().collapse(first, caret);
    }

    const boxAround = node => pondera.selection.positionedAround(node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement);

    // Deletes a selection that reaches from one paragraph into another; false where that is the browser's business.
    function deleteAcross(range) {
        const first = blockOf(range.startContainer), last = blockOf(range.endContainer);
        if (boxAround(first) !== boxAround(last)) {
            range.deleteContents();
            return true;
        }
        if (first === last || !isLeaf(first) || !isLeaf(last) || first.closest("td, th") !== last.closest("td, th")) return false;
        range.deleteContents();
        join(first, last);
        return true;
    }

    // The paragraph before or after a block. Boxes of their own between them do not count: they stand elsewhere on the page.
    function neighbour(block, backwards) {
        const [step, inner] = backwards ? ["previousSibling", "lastElementChild"] : ["nextSibling", "firstElementChild"];
        const passed = node => node.nodeType === Node.COMMENT_NODE || (node.nodeType === Node.TEXT_NODE && !node.data.trim()) ||
            (node.nodeType === Node.ELEMENT_NODE && pondera.selection.isPositioned(node));
        let node = block[step];
        while (node && passed(node)) node = node[step];
        while (node && node.nodeType === Node.ELEMENT_NODE && !isLeaf(node) && node.matches("ul, ol, li, div, blockquote")) node = node[inner];
        return node && node.nodeType === Node.ELEMENT_NODE && isLeaf(node) && boxAround(node) === boxAround(block) ? node : null;
    }

    function isAtEdge(range, block, backwards) {
        const rest = document.createRange();
        rest.selectNodeContents(block);
        if (backwards) rest.setEnd(range.startContainer, range.startOffset);
        else rest.setStart(range.endContainer, range.endOffset);
        return !rest.toString().replace(/[\n\r\t ]/g, "") && !rest.cloneContents().querySelector(kContent.replace("br, ", ""));
    }

    // Joins the caret's paragraph with the one before or after it, when the caret stands at that edge.
    function joinAtCaret(range, backwards) {
        const block = blockOf(range.startContainer);
        const box = boxAround(block);
        // What a key takes away in a box ends at the box's border.
        if (box && isAtEdge(range, box, backwards)) return true;
        if (!block.matches("p, h1, h2, h3, h4, h5, h6") || !isLeaf(block) || !isAtEdge(range, block, backwards)) return false;
        const other = neighbour(block, backwards);
        if (!other) return false;
        const [first, second] = backwards ? [other, block] : [block, other];
        if (!isEmpty(first) || isEmpty(second)) {
            join(first, second);
        } else {
            first.remove();
            getSelection().collapse(second, 0);
        }
        return true;
    }

    // Deletes the selection, or what a key deletes beside the caret where that is the edge of a paragraph; false leaves it to the browser.
    function take(backwards) {
        trimSelection();
        const range = pondera.selection.textRange();
        if (!range) return false;
        return range.collapsed ? backwards !== undefined && joinAtCaret(range, backwards) : deleteAcross(range);
    }

    // In a box whose words stand in no paragraph Enter breaks the line: a second paragraph would be a second box.
    function breakLineInBox() {
        const range = pondera.selection.textRange();
        const box = range && boxAround(range.startContainer);
        if (!box || blockOf(range.startContainer) !== box) return false;
        take();
        document.execCommand("insertLineBreak");
        return true;
    }

    // Deletes the selection.
    function deleteSelection() {
        if (!take()) document.execCommand("delete");
    }

    return { trimSelection, take, breakLineInBox, deleteSelection };
})();
