'use strict';

/*
 * How loud the robot is, and how well it hears.
 */
window.sample = window.sample || {};

(function (sample) {

  const { asNumber, asRecord } = sample.values;
  const { createSlider } = sample.fields;

  function createVolumes(app) {

    const properties = (attributes) => app.send('system.sound.properties', attributes);

    // The robot reads before it writes. What was set is read in a request of
    // its own, so that the slider stands where the robot's mixer does.
    function setter(name) {
      return (value) => {
        properties({ [`set_${name}`]: value });
        properties({ [`get_${name}`]: true });
      };
    }

    const sliders = new Map([
      ['volume', createSlider('volume-sound', setter('volume'))],
      ['mic', createSlider('volume-mic', setter('mic'))],
    ]);

    function read() {
      properties({ get_volume: true, get_mic: true });
    }

    function onLoad({ sound }) {
      const values = asRecord(sound);
      sliders.forEach((slider, name) => {
        if (asNumber(values[name]) !== null) {
          slider.set(values[name]);
        }
      });
    }

    sliders.forEach((slider) => slider.set(null));

    return {
      start: read,
      onView: read,
      reactions: [['system.sound.load', onLoad]],
      buttons: {},
    };
  }

  sample.createVolumes = createVolumes;

})(window.sample);
