// The places of a page that a link can lead to: named anchors, elements with an id, and headings, which get a name when a link leads to them.
// An anchor is an A with an id; pages that say "name" are understood.
"use strict";

pondera.places = (() => {
    const kPlaces = "a[name]:not([name=pop]), a[id]";
    const kArrows = "#F_Dex, #F_Sin";  // of a group of pages: nobody wants to link to them
    const kHeadings = "h1, h2, h3, h4, h5, h6";
    const kMarked = "a[name]:not([name=pop]):not([href]), a[id]:not([href]), :is(h1, h2, h3, h4, h5, h6)[id]";

    // A little flag where a named place is: it takes no room, and is not part of the document.
    const marks = new CSSStyleSheet();
    marks.replaceSync(`:is(${kMarked})::before { content:""; position:absolute; width:10px; height:13px; margin:-7px 0 0 -3px;
        background:#e0218a; clip-path:polygon(0 0, 100% 27%, 20% 54%, 20% 100%, 0 100%) }`);

    const selection = pondera.selection;
    const nameOf = element => element.id || (element.localName === "a" && element.getAttribute("name")) || "";

    const addressOf = name => encodeURI(name).replace(/#/g, "%23");
    const placeNamed = name => [...document.querySelectorAll("[id], a[name]")].find(e => nameOf(e) === name);

    // The words at a place: its own, or those behind it.
    function wordsAt(element) {
        const range = document.createRange();
        range.selectNodeContents(element);
        if (!element.textContent.trim()) range.setEndAfter(pondera.links.blockOf(element).lastChild);
        const words = range.toString().replace(/\s+/g, " ").trim();
        return words.length > 60 ? words.slice(0, 59) + "…" : words;
    }

    function placeElements() {
        return [...document.body.querySelectorAll(kHeadings + ", [id], " + kPlaces)].filter(element =>
            element.matches(kArrows) ? false : nameOf(element) ? !element.closest(kHeadings) || element.matches(kHeadings) : element.matches(kHeadings) && element.textContent.trim());
    }

    // A heading is called what it is named, or what the place in it is named.
    function nameOfPlace(element) {
        return nameOf(element) || nameOf(element.querySelector("[id], " + kPlaces) || element);
    }

    function places() {
        return placeElements().map(e => ({ name: nameOfPlace(e), text: wordsAt(e), heading: Number(/^H([1-6])$/i.exec(e.tagName)?.[1] || 0) }));
    }

    function linkTo(index, name) {
        const element = placeElements()[index];
        if (!element || pondera.commands.status(5016) === 1) return false;
        const own = nameOfPlace(element);
        let linked = false;
        pondera.history.step("link", () => {
            linked = pondera.links.set("#" + addressOf(own || name));
            if (linked && !own) element.id = name;
        });
        return linked;
    }

    // The nodes that a caret stands between.
    function beside(range) {
        const { startContainer: node, startOffset: offset } = range;
        if (node.nodeType === Node.ELEMENT_NODE) return [node.childNodes[offset], node.childNodes[offset - 1]];
        return [offset === node.data.length && node.nextSibling, offset === 0 && node.previousSibling];
    }

    // The named place that the caret stands at or that is selected.
    function placeHere() {
        const range = selection.control() ? null : selection.textRange();
        if (!range) return null;
        const inside = !range.collapsed && [...document.body.querySelectorAll(kPlaces)].find(a => range.intersectsNode(a));
        const touched = range.collapsed && beside(range).find(node => node && node.nodeType === Node.ELEMENT_NODE && node.matches(kPlaces));
        return inside || touched || selection.elementOf(range).closest(kPlaces + ", :is(" + kHeadings + ")[id]");
    }

    function addPlace(name) {
        const range = selection.textRange();
        const link = selection.elementOf(range).closest("a");
        if (link) {
            link.id = name;
            return;
        }
        const place = document.createElement("a");
        place.id = name;
        const runs = range.collapsed ? [] : pondera.links.runsOf(range);
        if (runs.length === 1 && !range.cloneContents().querySelector("a")) {
            const words = pondera.links.rangeOf(runs[0]);
            place.append(words.extractContents());
            words.insertNode(place);
            pondera.links.dropEmptyBeside(place);
            getSelection().selectAllChildren(place);
        } else {
            const start = runs.length ? pondera.links.rangeOf(runs[0]) : range;
            start.collapse(true);
            start.insertNode(place);
            pondera.links.dropEmptyBeside(place);
            getSelection().collapse(place.parentNode, [...place.parentNode.childNodes].indexOf(place) + 1);
        }
    }

    function leadsTo(link, name) {
        const address = link.getAttribute("href").slice(1);
        return address === name || address === addressOf(name);
    }

    // Puts `now` in the place of an element, with all that is in it; the selection stays.
    function exchange(element, now) {
        const kept = selection.keep();
        now.append(...element.childNodes);
        const [first, last] = [now.firstChild, now.lastChild];
        element.replaceWith(now);
        for (const [node, offset] of [["anchor", "anchorOffset"], ["focus", "focusOffset"]]) {
            if (kept[node] !== element) continue;
            const inside = kept[offset] ? last : first;
            if (inside) [kept[node], kept[offset]] = [inside, kept[offset] ? lengthOf(inside) : 0];
        }
        selection.restore(kept);
    }

    // Changes attributes of an element by way of a copy: undo brings an attribute that was taken away back where it was only with its element.
    function changed(element, change) {
        const copy = element.cloneNode(false);
        change(copy);
        exchange(element, copy);
    }

    const dissolve = element => exchange(element, document.createDocumentFragment());
    const lengthOf = node => (node.nodeType === Node.TEXT_NODE ? node.data.length : node.childNodes.length);

    function renamePlace(place, name) {
        const old = nameOf(place);
        for (const link of document.querySelectorAll('a[href^="#"]')) {
            if (name && leadsTo(link, old)) link.setAttribute("href", "#" + addressOf(name));
        }
        if (!name && place.localName === "a" && !place.hasAttribute("href")) {
            dissolve(place);
            return;
        }
        changed(place, copy => {
            copy.removeAttribute("name");
            if (name) copy.id = name;
            else copy.removeAttribute("id");
        });
    }

    // Names the place here, or gives the one that is here another name; without a name it is none any more.
    function setPlace(name) {
        const place = placeHere();
        if (!place && (!name || selection.control() || !selection.textRange())) return false;
        pondera.history.step("anchor", () => (place ? renamePlace(place, name) : addPlace(name)));
        return true;
    }

    // Takes the names that the page has already from markup that is to be put into it: a copied place is no place of its own.
    function dropTakenNames(fragment) {
        for (const place of fragment.querySelectorAll(kPlaces)) {
            if (!placeNamed(nameOf(place))) continue;
            for (const name of ["id", "name"]) place.removeAttribute(name);
            if (!place.hasAttribute("href")) place.replaceWith(...place.childNodes);
        }
    }

    let atRisk = [];

    // A key that takes a letter away beside an anchor without words would take the anchor as well: it is put back.
    function beforeDeleting() {
        const range = selection.textRange();
        const around = range && range.collapsed ? pondera.links.blockOf(range.startContainer) : null;
        atRisk = around ? [...around.querySelectorAll(kPlaces)].filter(place => !place.firstChild) : [];
    }

    function afterDeleting() {
        const lost = atRisk.filter(place => !place.isConnected);
        atRisk = [];
        const range = selection.textRange();
        for (const place of range ? lost : []) {
            range.insertNode(place);
            range.collapse(false);
        }
        if (range && lost.length) getSelection().collapse(range.startContainer, range.startOffset);
    }

    return {
        kPlaces, marks, nameOf, placeNamed, changed, dissolve, places, linkTo, setPlace, dropTakenNames, beforeDeleting, afterDeleting,
        placeName: () => nameOf(placeHere() || document.body)
    };
})();
