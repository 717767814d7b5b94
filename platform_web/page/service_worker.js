// Keeps one version of the game for use without a network. The lines before these, written when the page is laid
// out, name the version and tell the SHA-256 of each file of it (Version, Files). A file with any other content is
// refused, so that a game never runs on parts of two versions; a new version waits until no page uses the old one.
"use strict";

const Prefix = `quillets ${registration.scope} `;
/** Cues are fetched when the sound is on, and kept from then on. */
const isCue = name => name.endsWith(".wav");

const hex = bytes => Array.from(new Uint8Array(bytes), byte => byte.toString(16).padStart(2, "0")).join("");

async function fetched(name) {
    const response = await fetch(name, { cache: "no-cache" });
    const content = await response.arrayBuffer();
    const sum = hex(await crypto.subtle.digest("SHA-256", content));
    if (!response.ok || sum !== Files[name]) throw new Error(`${name} is not of this version`);
    return new Response(content, { headers: { "Content-Type": response.headers.get("Content-Type") } });
}

async function keep(name) {
    const response = await fetched(name);
    await (await caches.open(Prefix + Version)).put(name, response.clone());
    return response;
}

async function serve(name) {
    const kept = await caches.match(name, { cacheName: Prefix + Version });
    return kept || keep(name).catch(() => Response.error());
}

async function dropOthers() {
    const names = await caches.keys();
    const old = names.filter(name => name.startsWith(Prefix) && name !== Prefix + Version);
    return Promise.all(old.map(name => caches.delete(name)));
}

addEventListener("install", event => {
    event.waitUntil(Promise.all(Object.keys(Files).filter(name => !isCue(name)).map(keep)));
});
addEventListener("activate", event => event.waitUntil(dropOthers()));
addEventListener("fetch", event => {
    const name = event.request.url.slice(registration.scope.length).replace(/[?#].*/, "") || "index.html";
    if (name in Files) event.respondWith(serve(name));
});
