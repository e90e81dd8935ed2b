'use strict';

// The scripts of the page stand packed in front of this one: they are longer than many a recording.
(async () => {
    const characters = atob(document.currentScript.previousElementSibling.textContent);
    const octets = Uint8Array.from(characters, character => character.charCodeAt(0));
    const unpacked = new Response(octets).body.pipeThrough(new DecompressionStream('deflate-raw'));
    const script = document.createElement('script');
    script.textContent = await new Response(unpacked).text();
    document.head.append(script);
})();
