// Numbered and bulleted lists out of whole paragraphs and back. The browser's own commands throw the paragraphs away and with them their look;
// here an item takes its paragraph's attributes with it, and gives them back.
"use strict";

pondera.lists = (() => {
    const kParagraphs = "p, h1, h2, h3, h4, h5, h6, pre, center";

    function changed(element, tag) {
        const made = document.createElement(tag);
        for (const attribute of element.attributes) made.setAttributeNode(attribute.cloneNode());
        made.append(...element.childNodes);
        return made;
    }

    // The paragraphs and items that the selection reaches; null where it also reaches words outside of them, or nested lists.
    function selectedBlocks() {
        pondera.merging.trimSelection();
        const range = pondera.selection.textRange();
        const walker = document.createTreeWalker(range.commonAncestorContainer, NodeFilter.SHOW_TEXT);
        const blocks = [];
        const start = pondera.selection.elementOf(range).closest(kParagraphs + ", li");
        if (start) blocks.push(start);
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            if (!range.intersectsNode(node) || !node.data.trim()) continue;
            const block = node.parentElement.closest(kParagraphs + ", li");
            if (!block) return null;
            if (!blocks.includes(block)) blocks.push(block);
        }
        const plain = block => block.localName !== "li" || (!block.querySelector("ul, ol, p") && !block.parentElement.parentElement.closest("ul, ol"));
        return blocks.length && blocks.every(plain) ? blocks : null;
    }

    // Takes an item out of its list, which is parted there.
    function takeOut(item) {
        const list = item.parentElement;
        const rest = list.cloneNode(false);
        while (item.nextSibling) rest.append(item.nextSibling);
        list.after(changed(item, "p"), rest);
        item.remove();
        for (const part of [list, rest]) if (!part.children.length) part.remove();
    }

    function putIn(blocks, tag) {
        let list = null;
        for (const block of blocks) {
            if (block.localName === "li") {
                list = block.parentElement;
                if (list.localName === tag) continue;
                const renamed = changed(list, tag);
                list.replaceWith(renamed);
                list = renamed;
                continue;
            }
            if (!list || list.nextElementSibling !== block) {
                list = document.createElement(tag);
                block.before(list);
            }
            list.append(changed(block, "li"));
            block.remove();
        }
    }

    // Makes a list of the selected paragraphs, or paragraphs of the selected items of such a list; false leaves it to the browser.
    function toggle(tag) {
        const blocks = selectedBlocks();
        if (!blocks) return false;
        const place = pondera.selection.keep();
        if (blocks.every(block => block.localName === "li" && block.parentElement.localName === tag)) blocks.forEach(takeOut);
        else putIn(blocks, tag);
        pondera.selection.restore(place);
        return true;
    }

    return { toggle };
})();
