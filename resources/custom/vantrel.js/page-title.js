
// The title of the page.
(function () {
    'use strict';

    vantrel.setDocumentTitleFromTemplate = function (context) {
        if (ReportEngine.hasPartial('titleTemplate')) {
            // Through an element, since the template's result is escaped and the title is plain text.
            var title = document.createElement('title');
            title.innerHTML = ReportEngine.render('titleTemplate', 'html', context);
            document.title = title.textContent;
        }
    };
}());
