// Pieces of server script in a page ("<? … ?>", "<% … %>"): the browser would take them for broken markup. While the page is edited a mark
// stands for each of them, a comment where nobody sees or edits it, bare letters within a tag or a script; the text gets them back to the letter.
"use strict";

pondera.serverScript = (() => {
    const kBlock = /<\?[\s\S]*?\?>|<%[\s\S]*?%>/g;
    const kMark = /<!--\ue0f0(\d+)\ue0f1-->|\ue0f0(\d+)\ue0f1/g;
    const kRawText = /<(\/?)(script|style|textarea|title|xmp|iframe)\b[^>]*>/gi;
    const blocks = [];

    // Whether a place of the text lies within a tag or within an element whose content is no markup.
    function isInTag(before) {
        const tag = before.lastIndexOf("<");
        return tag > before.lastIndexOf(">") && /^<\/?[a-z]/i.test(before.slice(tag, tag + 3));
    }

    function isInRawText(before) {
        let open = false;
        for (const match of before.matchAll(kRawText)) open = match[1] === "";
        return open;
    }

    // The text with marks instead of script. Blocks of earlier texts stay known, for undo.
    function hide(text) {
        return text.replace(kBlock, (block, at) => {
            const mark = "\ue0f0" + (blocks.push(block) - 1) + "\ue0f1";
            const before = text.slice(0, at);
            return isInTag(before) || isInRawText(before) ? mark : "<!--" + mark + "-->";
        });
    }

    const show = text => (blocks.length ? text.replace(kMark, (_, comment, plain) => blocks[comment ?? plain] ?? "") : text);

    return { hide, show };
})();
