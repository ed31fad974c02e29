
// The logos, from their copies first.
(function () {
    'use strict';

    // The remote image may take for ever to come. A preload holds up neither the page's load event nor
    // its print, as the image itself would.
    function showCopy(image, logo) {
        var remote = document.createElement('link');
        remote.rel = 'preload';
        remote.as = 'image';
        remote.href = logo.image;
        remote.onload = function () {
            image.src = logo.image;
        };
        document.head.appendChild(remote);
        image.removeAttribute('loading');
        image.src = logo.altData;
    }

    vantrel.showLogoCopies = function (logos) {
        var images = document.querySelectorAll('#logo img');
        logos.forEach(function (logo, i) {
            if (logo.altData && images[i]) {
                showCopy(images[i], logo);
            }
        });
    };
}());
