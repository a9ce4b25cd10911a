// Pieces of server script in a page ("<? … ?>", "<% … %>"): the browser would take them for broken markup. While the page is edited a mark
// stands for each of them; the text gets them back to the letter.
"use strict";

pondera.serverScript = (() => {
    const kBlock = /<\?[\s\S]*?\?>|<%[\s\S]*?%>/g;
    const kMark = /<!--\ue0f0(\d+)\ue0f1-->|\ue0f0(\d+)\ue0f1/g;
    let blocks = [];

    // The text with marks instead of script; the blocks of the text before stay known, for undo.
    function hide(text) {
        return text.replace(kBlock, block => "\ue0f0" + (blocks.push(block) - 1) + "\ue0f1");
    }

    // Marks between the tags become comments, so that nobody sees or edits them.
    function intoComments(parsed) {
        const walker = parsed.createTreeWalker(parsed, NodeFilter.SHOW_TEXT);
        const marked = [];
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            if (node.data.includes("\ue0f0") && !/^(script|style|textarea|title|xmp)$/.test(node.parentNode.localName)) marked.push(node);
        }
        for (const node of marked) {
            node.replaceWith(...node.data.split(/(\ue0f0\d+\ue0f1)/).filter(part => part)
                .map(part => (part[0] === "\ue0f0" ? parsed.createComment(part) : parsed.createTextNode(part))));
        }
    }

    const show = text => (blocks.length ? text.replace(kMark, (_, comment, plain) => blocks[comment ?? plain] ?? "") : text);

    return { hide, intoComments, show };
})();
