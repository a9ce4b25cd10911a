// Links. The browser's own editor would take a named place for a link and drop it, and makes several links of words that are partly bold; here
// a link is one element in each paragraph that it reaches, and named places survive.
"use strict";

pondera.links = (() => {
    const kFormatting = "b, strong, i, em, u, s, strike, sub, sup, font, span, big, small, a";

    const selection = pondera.selection;
    const { kPlaces, nameOf, placeNamed, changed, dissolve } = pondera.places;
    const isBlock = element => element === document.body || !/^(inline|contents|ruby)/.test(getComputedStyle(element).display);
    const isEmpty = element => !element.textContent && !element.querySelector("img, br, input, embed, object, video, iframe");
    const unwrap = element => element.replaceWith(...element.childNodes);

    function blockOf(node) {
        let element = node === document.body ? node : node.parentElement;
        while (!isBlock(element)) element = element.parentElement;
        return element;
    }

    // The words and pictures of a range, as runs within one paragraph each: [[first node, offset], [last node, offset]]. What stands in boxes
    // of its own does not belong to them.
    function runsOf(range) {
        const box = selection.positionedAround(selection.elementOf(range));
        const inOtherBox = e => e !== box && !e.contains(range.commonAncestorContainer) && selection.isPositioned(e);
        const walker = document.createTreeWalker(range.commonAncestorContainer, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_ELEMENT,
            node => (node.nodeType === Node.ELEMENT_NODE && inOtherBox(node) ? NodeFilter.FILTER_REJECT : NodeFilter.FILTER_ACCEPT));
        const runs = [];
        let block = null;
        for (let node = walker.currentNode; node; node = walker.nextNode()) {
            if (!range.intersectsNode(node)) continue;
            let from = 0, to = 0;
            if (node.nodeType === Node.TEXT_NODE) {
                from = node === range.startContainer ? range.startOffset : 0;
                to = node === range.endContainer ? range.endOffset : node.data.length;
                if (!node.data.slice(from, to).trim()) continue;
            } else if (node.localName !== "img") {
                if (isBlock(node)) block = null;
                continue;
            }
            const own = blockOf(node);
            if (own !== block) runs.push([[node, from], [node, to]]);
            else runs[runs.length - 1][1] = [node, to];
            block = own;
        }
        return runs;
    }

    function rangeOf([[first, from], [last, to]]) {
        const range = document.createRange();
        if (first.nodeType === Node.TEXT_NODE) range.setStart(first, from);
        else range.setStartBefore(first);
        if (last.nodeType === Node.TEXT_NODE) range.setEnd(last, to);
        else range.setEndAfter(last);
        return range;
    }

    function setAddress(link, address) {
        link.setAttribute("href", address);
        for (const picture of link.querySelectorAll("img:not([border])")) picture.setAttribute("border", "0");
    }

    function placeBefore(node, name) {
        const place = document.createElement("a");
        place.id = name;
        node.before(place);
    }

    // Links in a link give way to it; the names of places stay, in front of it.
    function dropInnerLinks(link) {
        for (const inner of [...link.querySelectorAll("a")]) {
            const name = inner.matches(kPlaces) ? nameOf(inner) : "";
            unwrap(inner);
            if (name && !placeNamed(name)) placeBefore(link, name);
        }
    }

    // A link that stands in another one parts it; the formatting between them goes with the words.
    function liftOut(link) {
        const outer = link.parentElement.closest("a");
        if (!outer) return;
        for (let e = link.parentElement; e !== outer; e = e.parentElement) {
            const copy = e.cloneNode(false);
            copy.removeAttribute("id");
            copy.append(...link.childNodes);
            link.append(copy);
        }
        const rest = document.createRange();
        rest.setStartAfter(link);
        rest.setEndAfter(outer);
        const tail = rest.extractContents();
        for (const name of ["id", "name"]) tail.firstElementChild?.removeAttribute(name);
        const after = tail.firstElementChild;
        outer.after(link, tail);
        for (const part of [outer, after]) if (part && isLeftOver(part)) part.remove();
    }

    const isLeftOver = node => (node.nodeType === Node.TEXT_NODE ? !node.data
        : node.nodeType === Node.ELEMENT_NODE && node.matches(kFormatting) && isEmpty(node) && !nameOf(node) && !node.querySelector(kPlaces));

    // What taking words out leaves beside them.
    function dropEmptyBeside(link) {
        for (const side of ["previousSibling", "nextSibling"]) while (link[side] && isLeftOver(link[side])) link[side].remove();
    }

    // Links that have lost their words go; of one that is a named place as well, the place stays.
    function dropEmptyLinks(block) {
        for (const link of block.querySelectorAll("a[href]")) {
            if (!isEmpty(link)) continue;
            if (link.matches(kPlaces)) placeBefore(link, nameOf(link));
            link.remove();
        }
    }

    function wrap(run, address) {
        const range = rangeOf(run);
        const link = document.createElement("a");
        link.append(range.extractContents());
        range.insertNode(link);
        liftOut(link);
        dropInnerLinks(link);
        dropEmptyBeside(link);
        dropEmptyLinks(blockOf(link));
        setAddress(link, address);
        return link;
    }

    function linkWords(range, address) {
        const runs = runsOf(range);
        if (!runs.length) return false;
        // A place that holds words gives them free: a link in it would be a link in a link.
        for (const place of document.body.querySelectorAll("a:not([href])")) {
            if (range.intersectsNode(place) && place.firstChild) place.after(...place.childNodes);
        }
        const links = runs.map(run => wrap(run, address));
        const last = links[links.length - 1];
        getSelection().setBaseAndExtent(links[0], 0, last, last.childNodes.length);
        return true;
    }

    function linkElement(element, address) {
        let link = element.closest("a");
        if (!link) {
            link = document.createElement("a");
            element.replaceWith(link);
            link.append(element);
            dropInnerLinks(link);
        }
        setAddress(link, address);
    }

    // Makes a link of what is selected, or changes the link around it; false when nothing there can be a link.
    function set(address) {
        const element = selection.control();
        if (element) {
            linkElement(element, address);
            return true;
        }
        const range = selection.textRange();
        const link = selection.linkOf(range);
        const isAll = link && (link.contains(range.commonAncestorContainer) || link.textContent === range.toString());
        if (isAll) {
            setAddress(link, address);
            return true;
        }
        pondera.merging.trimSelection();
        return linkWords(selection.textRange(), address);
    }

    // The links that are selected or that the caret stands in.
    function selected() {
        const element = selection.control();
        const range = selection.textRange();
        if (element || !range) return element && element.closest("a[href]") ? [element.closest("a[href]")] : [];
        const around = selection.elementOf(range).closest("a[href]");
        if (around || range.collapsed) return around ? [around] : [];
        return [...document.body.querySelectorAll("a[href]")].filter(link => range.intersectsNode(link));
    }

    // Takes links away, whole; a link that is a named place as well stays as that.
    function remove() {
        for (const link of selected()) {
            if (!link.matches(kPlaces)) dissolve(link);
            else changed(link, place => ["href", "target"].forEach(name => place.removeAttribute(name)));
        }
    }

    return { set, remove, selected, runsOf, rangeOf, blockOf, dropEmptyBeside };
})();
