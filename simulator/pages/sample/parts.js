'use strict';

/*
 * Views that consist of parts. A part is what a view is: { onView, start,
 * reactions, buttons }, of which the functions may be missing.
 */
window.sample = window.sample || {};

(function (sample) {

  function joinParts(parts) {
    const callEach = (name) => () => parts.forEach((part) => part[name] && part[name]());
    return {
      onView: callEach('onView'),
      start: callEach('start'),
      reactions: [].concat(...parts.map((part) => part.reactions)),
      buttons: Object.assign({}, ...parts.map((part) => part.buttons)),
    };
  }

  // A view with tabs of its own: parts by the name of their tab. One of them is
  // in sight at a time, and only that one is told when the view is.
  function createGroup(bar, parts) {
    const view = bar.closest('.view');
    let inSight = null;

    function onView() {
      if (!view.hidden && parts[inSight].onView) {
        parts[inSight].onView();
      }
    }

    sample.createTabs(bar, (name) => {
      inSight = name;
      view.scrollTop = 0;
      onView();
    });

    return Object.assign(joinParts(Object.values(parts)), { onView });
  }

  sample.joinParts = joinParts;
  sample.createGroup = createGroup;

})(window.sample);
