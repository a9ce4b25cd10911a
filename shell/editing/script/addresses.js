// Finds the element that says an address, wherever in the page the address stands.
"use strict";

pondera.addresses = (() => {
    const selection = pondera.selection;
    const kAddresses = new Set("href src background data poster action formaction longdesc lowsrc dynsrc usemap value xlink:href".split(" "));

    // How often an attribute or a script says an address.
    function timesIn(name, value, address) {
        const isText = ["", "style", "srcset", "content"].includes(name) || name.startsWith("on") || /^\s*javascript:/i.test(value);
        if (!isText) return kAddresses.has(name) && value.trim() === address ? 1 : 0;
        let times = 0;
        const edges = /["'(),;\s]/;
        for (let at = value.indexOf(address); at >= 0; at = value.indexOf(address, at + address.length)) {
            const before = value[at - 1] || " ", after = value[at + address.length] || " ";
            if (edges.test(before) && edges.test(after)) ++times;
        }
        return times;
    }

    function timesOf(element, address) {
        let times = element.matches("script, style") ? timesIn("", element.textContent, address) : 0;
        for (const { name, value } of element.attributes) times += timesIn(name, value, address);
        return times;
    }

    // What the person sees of an element: for one that is only a part of another, such as the area of a picture, that other.
    function seenOf(element) {
        if (element.matches("area")) {
            const map = element.closest("map")?.name;
            return [...document.images].find(picture => map && picture.useMap.endsWith("#" + map));
        }
        const seen = element.parentElement.closest("object, video, audio, picture, select") || element;
        return seen.getClientRects().length ? seen : undefined;
    }

    function show(element) {
        const isPiece = element.matches("img, embed, object, video, audio, iframe, input, select");
        const picture = isPiece ? element : element.textContent.trim() ? null : element.querySelector("img");
        if (picture || selection.isPositioned(element)) {
            selection.select(picture || element);
        } else {
            selection.select(null);
            getSelection().selectAllChildren(element);
        }
        element.scrollIntoView({ block: "center", inline: "nearest" });
        selection.placeFrame();
    }

    // Selects the element with the `number`th of an address (from 0): "shown", "hidden" where that is nothing that can be seen, or "missing".
    function showAddress(address, number) {
        for (const element of document.querySelectorAll("*")) {
            number -= timesOf(element, address);
            if (number >= 0) continue;
            const isSeen = element !== document.body && document.body.contains(element);
            if (!isSeen || element.matches("script, style, link, meta, noscript *")) return "hidden";
            const seen = seenOf(element);
            if (seen) show(seen);
            return seen ? "shown" : "hidden";
        }
        return "missing";
    }

    return { show: showAddress };
})();
